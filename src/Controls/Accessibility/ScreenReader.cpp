#include "Controls/Accessibility/ScreenReader.h"

#include "Controls/Accessibility/AccessibleLeaf.h"
#include "Controls/Look/ShownText.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

#include <array>

namespace {

/// A text that is read out when it appears. Its parent is the window, but it is not among the
/// window's children.
class Announcement : public AccessibleLeaf
{
public:
    Announcement(QWindow *window, const QString &text)
        : m_window(window)
        , m_text(text)
    { }

    bool isValid() const override { return m_window; }
    QWindow *window() const override { return m_window; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_window);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_text : QString();
    }
    QRect rect() const override { return m_window ? m_window->geometry() : QRect(); }
    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }

private:
    QPointer<QWindow> m_window;
    QString m_text;
};

} // namespace

void ScreenReader::announce(const QString &text)
{
    QWindow *window = QGuiApplication::focusWindow();
    if (!QAccessible::isActive() || !window || text.isEmpty())
        return;
    // A reader asks for the text some time after the event: the last few messages stay.
    static std::array<QAccessible::Id, 8> messages {};
    static size_t next = 0;
    QAccessible::Id &id = messages[next++ % messages.size()];
    if (QAccessible::accessibleInterface(id))
        QAccessible::deleteAccessibleInterface(id);
    id = QAccessible::registerAccessibleInterface(
        new Announcement(window, ShownText::of(text, false)));
    QAccessibleEvent event(QAccessible::accessibleInterface(id), QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void ScreenReader::focus(QQuickItem *item)
{
    QAccessibleEvent event(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
