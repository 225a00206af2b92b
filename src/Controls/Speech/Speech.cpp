#include "Controls/Speech/Speech.h"

#include "Controls/Look/ShownText.h"
#include "Controls/Speech/SpokenNode.h"
#include "Controls/Speech/SpokenRows.h"
#include "Controls/Speech/TopLayer.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QQuickWindow>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/// What is told of the window: the top layer of it. Sheets and menus put everything else out of
/// reach, and so out of the tree.
class SpokenWindow : public QAccessibleObject
{
public:
    using QAccessibleObject::QAccessibleObject;

    QQuickWindow *quickWindow() const { return static_cast<QQuickWindow *>(object()); }
    QList<QAccessibleInterface *> children() const
    {
        return Spoken::childrenOf(TopLayer::of(quickWindow()));
    }

    QWindow *window() const override { return quickWindow(); }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(qApp);
    }
    QAccessibleInterface *child(int index) const override { return children().value(index); }
    int childCount() const override { return int(children().size()); }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return int(children().indexOf(const_cast<QAccessibleInterface *>(child)));
    }
    QAccessibleInterface *focusChild() const override
    {
        return QAccessible::queryAccessibleInterface(quickWindow()->activeFocusItem());
    }
    QRect rect() const override { return quickWindow()->geometry(); }
    QAccessible::Role role() const override { return QAccessible::Window; }
    QString text(QAccessible::Text) const override { return quickWindow()->title(); }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.active = QGuiApplication::focusWindow() == quickWindow();
        state.invisible = !quickWindow()->isVisible();
        return state;
    }
};

/// A text that is read out when it appears. It is a child of the window, but not one of those that
/// can be come upon.
class SpokenMessage : public SpokenLeaf
{
public:
    SpokenMessage(QWindow *window, const QString &text)
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

QAccessibleInterface *makeNode(const QString &className, QObject *object)
{
    if (className == "QQuickApplicationWindow"_L1)
        return new SpokenWindow(object);
    if (className == "SpokenRows"_L1)
        return makeSpokenList(static_cast<SpokenRows *>(object));
    if (className == "SpokenDialog"_L1)
        return new SpokenBox(static_cast<QQuickItem *>(object));
    // Qt takes what holds a pop-up for a dialog; the dialog, where there is one, lies in it.
    if (className == "QQuickPopupItem"_L1)
        return new SpokenItem(static_cast<QQuickItem *>(object), QAccessible::Grouping);
    if (className == "SpokenWhole"_L1)
        return new SpokenItem(static_cast<QQuickItem *>(object), QAccessible::StaticText);
    if (className == "QQuickTextField"_L1)
        return new SpokenField(static_cast<QQuickItem *>(object));

    static constexpr std::array controls {
        std::pair("QQuickRadioButton", QAccessible::RadioButton),
        std::pair("QQuickMenuItem", QAccessible::MenuItem),
        std::pair("QQuickMenuBarItem", QAccessible::MenuItem),
        std::pair("QQuickComboBox", QAccessible::ComboBox),
        std::pair("QQuickAbstractButton", QAccessible::Button),
    };
    for (const auto &[name, role] : controls) {
        if (className == QLatin1StringView(name))
            return new SpokenControl(static_cast<QQuickItem *>(object), role);
    }
    return nullptr;
}

void installNodes() { QAccessible::installFactory(makeNode); }

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installNodes)

void Speech::say(const QString &text)
{
    QWindow *window = QGuiApplication::focusWindow();
    if (!QAccessible::isActive() || !window || text.isEmpty())
        return;
    // A reader asks for the text some time after it has heard of the message: the last few stay.
    static std::array<QAccessible::Id, 8> messages {};
    static size_t next = 0;
    QAccessible::Id &id = messages[next++ % messages.size()];
    if (QAccessible::accessibleInterface(id))
        QAccessible::deleteAccessibleInterface(id);
    id = QAccessible::registerAccessibleInterface(
        new SpokenMessage(window, ShownText::of(text, false)));
    QAccessibleEvent event(QAccessible::accessibleInterface(id), QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void Speech::focus(QQuickItem *item)
{
    QAccessibleEvent event(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}
