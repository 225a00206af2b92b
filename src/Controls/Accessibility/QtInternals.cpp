#include "Controls/Accessibility/QtInternals.h"

#include <algorithm>

QObject *QtInternals::accessibleAttached(const QQuickItem *item)
{
    // A control may have made one for itself before: the last is QML's.
    const auto &children = item->children();
    const auto last = std::find_if(children.rbegin(), children.rend(), [](const QObject *child) {
        return child->inherits("QQuickAccessibleAttached");
    });
    return last == children.rend() ? nullptr : *last;
}

bool QtInternals::isMenuTitle(const QQuickItem *item)
{
    return item->inherits("QQuickMenuBarItem");
}

bool QtInternals::isOverlay(const QQuickItem *item) { return item->inherits("QQuickOverlay"); }

const QObject *QtInternals::popupOf(const QQuickItem *item)
{
    return item->inherits("QQuickPopupItem") ? item->parent() : nullptr;
}
