#include "Controls/Accessibility/SpokenItem.h"

#include "Controls/Accessibility/QtInternals.h"
#include "Controls/Accessibility/TopLayer.h"
#include "Controls/Look/ShownText.h"

#include <QQuickWindow>

namespace {

bool isTold(const QQuickItem *item)
{
    const QObject *told = QtInternals::accessibleAttached(item);
    return told && !told->property("ignored").toBool();
}

} // namespace

QVariant Spoken::attached(const QQuickItem *item, const char *property)
{
    const QObject *told = QtInternals::accessibleAttached(item);
    return told ? told->property(property) : QVariant();
}

QAccessible::Role Spoken::role(const QQuickItem *item)
{
    return static_cast<QAccessible::Role>(attached(item, "role").toInt());
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
    // What is on top is no part of the tree, but what lies in it: see SpokenWindow.
    const QQuickItem *top = item->window() ? TopLayer::of(item->window()) : nullptr;
    for (const QQuickItem *above = item->parentItem(); above && above != top;
         above = above->parentItem()) {
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
