#include "Controls/Speech/TopLayer.h"

QQuickItem *TopLayer::of(const QQuickWindow *window)
{
    QQuickItem *top = window->contentItem();
    const auto layers = window->contentItem()->childItems();
    for (const QQuickItem *layer : layers) {
        if (!layer->inherits("QQuickOverlay"))
            continue;
        const auto popups = layer->childItems();
        for (QQuickItem *item : popups) {
            // A popup's item is a child object of the popup.
            const QObject *popup = item->parent();
            if (item->inherits("QQuickPopupItem") && item->isVisible() && popup
                && (popup->property("modal").toBool() || popup->inherits("QQuickMenu")))
                top = item;
        }
    }
    return top;
}

bool TopLayer::holds(const QQuickItem *item)
{
    const QQuickItem *top = item->window() ? of(item->window()) : nullptr;
    return top && (item == top || top->isAncestorOf(item));
}
