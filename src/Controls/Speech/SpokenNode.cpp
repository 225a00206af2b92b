#include "Controls/Speech/SpokenNode.h"

#include "Controls/Look/ShownText.h"
#include "Controls/Speech/TopLayer.h"

#include <QQuickWindow>

#include <algorithm>

namespace {

/// Where QML's `Accessible` keeps what is set. A control may have made another for itself before.
QObject *attachedTo(const QQuickItem *item)
{
    const auto &children = item->children();
    const auto last = std::find_if(children.rbegin(), children.rend(), [](const QObject *child) {
        return child->inherits("QQuickAccessibleAttached");
    });
    return last == children.rend() ? nullptr : *last;
}

bool isTold(const QQuickItem *item)
{
    const QObject *told = attachedTo(item);
    return told && !told->property("ignored").toBool();
}

} // namespace

QVariant Spoken::attached(const QQuickItem *item, const char *property)
{
    const QObject *told = attachedTo(item);
    return told ? told->property(property) : QVariant();
}

QRect Spoken::screenRect(const QQuickItem *item)
{
    if (!item->window())
        return {};
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    return { item->window()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize() };
}

QAccessible::State Spoken::baseState(const QQuickItem *item)
{
    QAccessible::State state;
    state.invisible = !item->window() || !item->isVisible() || qFuzzyIsNull(item->opacity());
    state.offscreen = !state.invisible && !item->window()->geometry().intersects(screenRect(item));
    state.disabled = !item->isEnabled();
    return state;
}

QAccessibleInterface *Spoken::parentOf(const QQuickItem *item)
{
    for (const QQuickItem *above = item->parentItem(); above; above = above->parentItem()) {
        if (isTold(above))
            return QAccessible::queryAccessibleInterface(const_cast<QQuickItem *>(above));
    }
    return QAccessible::queryAccessibleInterface(item->window());
}

QList<QAccessibleInterface *> Spoken::childrenOf(const QQuickItem *item)
{
    QList<QAccessibleInterface *> found;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible() || qFuzzyIsNull(child->opacity()))
            continue;
        QAccessibleInterface *node =
            isTold(child) ? QAccessible::queryAccessibleInterface(child) : nullptr;
        if (node)
            found.append(node);
        else
            found += childrenOf(child);
    }
    return found;
}

QString SpokenItem::text(QAccessible::Text kind) const
{
    const char *property = kind == QAccessible::Name ? "name"
        : kind == QAccessible::Description           ? "description"
                                                     : nullptr;
    return property ? ShownText::of(Spoken::attached(item(), property).toString(), false)
                    : QString();
}

void *SpokenControl::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

QList<QAccessibleInterface *> SpokenControl::children() const
{
    QList<QAccessibleInterface *> parts = Spoken::childrenOf(item());
    parts.removeIf([](QAccessibleInterface *part) { return !dynamic_cast<SpokenControl *>(part); });
    return parts;
}

QAccessible::State SpokenControl::state() const
{
    QAccessible::State state = Spoken::baseState(item());
    state.busy = item()->property("busy").toBool();
    state.focusable = item()->property("focusPolicy").toInt() != Qt::NoFocus;
    state.focused = item()->hasActiveFocus();
    const QVariant expanded = item()->property("isExpanded");
    state.expandable = state.hasPopup = expanded.isValid();
    state.expanded = expanded.toBool();
    state.collapsed = expanded.isValid() && !expanded.toBool();
    state.checkable = role() == QAccessible::RadioButton;
    state.checked = state.checkable && item()->property("checked").toBool();
    return state;
}

QStringList SpokenControl::actionNames() const { return { pressAction(), setFocusAction() }; }

void SpokenControl::doAction(const QString &action)
{
    if (!item()->isEnabled() || !TopLayer::holds(item()))
        return;
    if (action == setFocusAction())
        item()->forceActiveFocus(Qt::TabFocusReason);
    else if (QObject *told = attachedTo(item()); told && action == pressAction())
        QMetaObject::invokeMethod(told, "pressAction");
}

void *SpokenField::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface *>(this)
                                              : SpokenControl::interface_cast(type);
}

QString SpokenField::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? item()->property("text").toString()
                                      : SpokenControl::text(kind);
}

void SpokenField::setText(QAccessible::Text kind, const QString &text)
{
    if (kind == QAccessible::Value && TopLayer::holds(item()))
        item()->setProperty("text", text);
}

QAccessible::State SpokenField::state() const
{
    QAccessible::State state = SpokenControl::state();
    state.editable = state.selectableText = true;
    return state;
}

void SpokenField::selection(int, int *start, int *end) const
{
    *start = item()->property("selectionStart").toInt();
    *end = item()->property("selectionEnd").toInt();
}

int SpokenField::selectionCount() const
{
    return item()->property("selectedText").toString().isEmpty() ? 0 : 1;
}

void SpokenField::addSelection(int start, int end)
{
    QMetaObject::invokeMethod(item(), "select", Q_ARG(int, start), Q_ARG(int, end));
}

void SpokenField::removeSelection(int) { QMetaObject::invokeMethod(item(), "deselect"); }

int SpokenField::cursorPosition() const { return item()->property("cursorPosition").toInt(); }

void SpokenField::setCursorPosition(int position)
{
    item()->setProperty("cursorPosition", position);
}

QString SpokenField::text(int start, int end) const
{
    return text(QAccessible::Value).mid(start, end - start);
}

int SpokenField::characterCount() const { return int(text(QAccessible::Value).size()); }

QRect SpokenField::characterRect(int offset) const
{
    QRectF place;
    QMetaObject::invokeMethod(item(), "positionToRectangle", Q_RETURN_ARG(QRectF, place),
                              Q_ARG(int, offset));
    return place.translated(rect().topLeft()).toRect();
}

QString SpokenField::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}
