#include "Controls/Style/ToolTipFinder.h"

#include "Controls/Accessibility/QtInternals.h"

#include <QMouseEvent>

#include <algorithm>

namespace {

constexpr int delay = 500; // milliseconds

/// What a tool tip shows for this item; empty when the item shows everything.
QString textFor(const QQuickItem *item)
{
    if (QtInternals::isText(item) && item->property("truncated").toBool())
        return item->property("text").toString();
    return item->property("toolTip").toString();
}

/// In the order in which they are drawn.
QList<QQuickItem *> shownChildren(const QQuickItem *item)
{
    QList<QQuickItem *> children = item->childItems();
    children.removeIf([](const QQuickItem *child) { return !child->isVisible(); });
    std::stable_sort(
        children.begin(), children.end(),
        [](const QQuickItem *left, const QQuickItem *right) { return left->z() < right->z(); });
    return children;
}

/// The topmost item at this point of `item` that has a text for a tool tip; null when there is
/// none.
const QQuickItem *itemAt(const QQuickItem *item, const QPointF &point)
{
    if (item->clip() && !item->contains(point))
        return nullptr;
    const QList<QQuickItem *> children = shownChildren(item);
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        if (const QQuickItem *found = itemAt(*child, (*child)->mapFromItem(item, point)))
            return found;
        // What lies behind an open sheet or menu is not asked.
        if (QtInternals::isOverlay(*child))
            return nullptr;
    }
    return item->contains(point) && !textFor(item).isEmpty() ? item : nullptr;
}

/// Adds what a tool tip shows for a control. False when the item is none, but holds controls.
bool addTexts(const QQuickItem *item, QStringList &texts)
{
    if (const QString text = textFor(item); !text.isEmpty())
        texts.append(text);
    const QList<QQuickItem *> children = shownChildren(item);
    return std::all_of(children.begin(), children.end(), [&texts](const QQuickItem *child) {
        return !child->activeFocusOnTab() && addTexts(child, texts);
    });
}

} // namespace

ToolTipFinder::ToolTipFinder(QObject *parent)
    : WindowWatcher(parent)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    connect(&m_delay, &QTimer::timeout, this, &ToolTipFinder::find);
    connect(this, &ToolTipFinder::windowChanged, this, [this] {
        connect(window(), &QQuickWindow::activeFocusItemChanged, this, &ToolTipFinder::waitAtFocus);
    });
}

bool ToolTipFinder::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        waitAt(static_cast<QMouseEvent *>(event)->position());
        break;
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
        m_keyboardActedLast = event->type() == QEvent::KeyPress;
        hide();
        break;
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::Leave:
    case QEvent::FocusOut:
        hide();
        break;
    default:
        break;
    }
    return WindowWatcher::eventFilter(watched, event);
}

void ToolTipFinder::waitAt(const QPointF &pointer)
{
    if (!m_text.isEmpty() && m_place.contains(pointer))
        return;
    hide();
    m_pointer = pointer;
    m_focused = nullptr;
    m_delay.start();
}

void ToolTipFinder::waitAtFocus()
{
    if (!m_keyboardActedLast)
        return;
    hide();
    m_focused = window()->activeFocusItem();
    m_delay.start();
}

void ToolTipFinder::hide()
{
    m_delay.stop();
    show({}, nullptr);
}

void ToolTipFinder::find()
{
    if (!window() || !window()->isActive())
        return;
    if (!m_focused) {
        const QQuickItem *item = itemAt(root(), m_pointer);
        show(item ? textFor(item) : QString(), item);
        return;
    }
    QStringList texts;
    const bool isControl = addTexts(m_focused, texts);
    show(isControl ? texts.join(u'\n') : QString(), m_focused);
}

void ToolTipFinder::show(const QString &text, const QQuickItem *item)
{
    if (text == m_text)
        return;
    m_text = text;
    if (item)
        m_place = item->mapRectToScene(QRectF(QPointF(), item->size()));
    Q_EMIT changed();
}
