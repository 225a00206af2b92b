#pragma once

#include <QQuickItem>
#include <QQuickWindow>

/// What a user can reach in a window: while sheets and menus are open, only the one on top.
namespace TopLayer {

/// The item under which everything that can be reached lies: that of the last modal popup, or the
/// window's content.
QQuickItem *of(const QQuickWindow *window);

/// Whether the item lies in the top layer of its window.
bool holds(const QQuickItem *item);

} // namespace TopLayer
