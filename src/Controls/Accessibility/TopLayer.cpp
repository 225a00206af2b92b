#include "Controls/Accessibility/TopLayer.h"

#include "Controls/Accessibility/QtInternals.h"

QQuickItem *TopLayer::of(const QQuickWindow *window)
{
    QQuickItem *top = window->contentItem();
    const auto layers = window->contentItem()->childItems();
    for (const QQuickItem *layer : layers) {
        if (!QtInternals::isOverlay(layer))
            continue;
        const auto popups = layer->childItems();
        for (QQuickItem *item : popups) {
            const QObject *popup = QtInternals::popupOf(item);
            if (popup && item->isVisible()
                && (popup->property("modal").toBool() || QtInternals::isMenu(popup)))
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
