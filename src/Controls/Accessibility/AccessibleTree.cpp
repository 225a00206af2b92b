#include "Controls/Accessibility/AccessibleTree.h"

#include "Controls/Accessibility/AccessibleItem.h"
#include "Controls/Accessibility/AccessibleList.h"
#include "Controls/Accessibility/QtInternals.h"

#include <QGuiApplication>

namespace {

bool isInTree(const QQuickItem *item)
{
    const QObject *attached = QtInternals::accessibleAttached(item);
    // What lies in a popup is in the tree, the popup is not.
    return attached && !attached->property("ignored").toBool() && !QtInternals::popupOf(item);
}

/// A window has what can be reached in it for its children.
class AccessibleWindow : public QAccessibleObject
{
public:
    using QAccessibleObject::QAccessibleObject;

    QQuickWindow *quickWindow() const { return static_cast<QQuickWindow *>(object()); }
    QList<QAccessibleInterface *> children() const
    {
        return AccessibleTree::childrenOf(AccessibleTree::top(quickWindow()));
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

/// Qt asks once for each class of an object, from its own to QObject. Null leaves the object to Qt.
QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    if (qobject_cast<QQuickWindow *>(object))
        return new AccessibleWindow(object);
    if (auto *list = qobject_cast<AccessibleList *>(object))
        return list->makeInterface();
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item || !(isInTree(item) || QtInternals::popupOf(item)))
        return nullptr;
    // Qt's interface of a text field has all that is typed and selected in it.
    const bool isTextField = item->flags().testFlag(QQuickItem::ItemAcceptsInputMethod);
    return isTextField ? nullptr : new AccessibleItem(item);
}

} // namespace

AccessibleTree::AccessibleTree(QObject *parent)
    : QObject(parent)
{
    QAccessible::installFactory(makeInterface);
}

QQuickItem *AccessibleTree::top(const QQuickWindow *window)
{
    QQuickItem *top = window->contentItem();
    const auto layers = window->contentItem()->childItems();
    for (const QQuickItem *layer : layers) {
        if (!QtInternals::isOverlay(layer))
            continue;
        const auto popups = layer->childItems();
        for (QQuickItem *item : popups) {
            const QObject *popup = QtInternals::popupOf(item);
            if (popup && item->isVisible() && popup->property("modal").toBool())
                top = item;
        }
    }
    return top;
}

bool AccessibleTree::isReachable(const QQuickItem *item)
{
    const QQuickItem *reachable = item->window() ? top(item->window()) : nullptr;
    return reachable && (item == reachable || reachable->isAncestorOf(item));
}

QList<QAccessibleInterface *> AccessibleTree::childrenOf(const QQuickItem *item)
{
    QList<QAccessibleInterface *> found;
    const auto children = item->childItems();
    for (QQuickItem *child : children) {
        if (!child->isVisible() || qFuzzyIsNull(child->opacity()))
            continue;
        QAccessibleInterface *node =
            isInTree(child) ? QAccessible::queryAccessibleInterface(child) : nullptr;
        if (node)
            found.append(node);
        else
            found += childrenOf(child);
    }
    return found;
}

QAccessibleInterface *AccessibleTree::parentOf(const QQuickItem *item)
{
    const QQuickItem *reachable = item->window() ? top(item->window()) : nullptr;
    for (QQuickItem *above = item->parentItem(); above && above != reachable;
         above = above->parentItem()) {
        if (isInTree(above))
            return QAccessible::queryAccessibleInterface(above);
    }
    return QAccessible::queryAccessibleInterface(item->window());
}

QRect AccessibleTree::screenRect(const QQuickItem *item)
{
    if (!item->window())
        return {};
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    return { item->window()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize() };
}

QAccessible::State AccessibleTree::stateOf(const QQuickItem *item)
{
    QAccessible::State state;
    state.invisible = !item->window() || !item->isVisible() || qFuzzyIsNull(item->opacity());
    state.offscreen = !state.invisible && !item->window()->geometry().intersects(screenRect(item));
    state.disabled = !item->isEnabled();
    return state;
}
