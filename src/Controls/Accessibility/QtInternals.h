#pragma once

#include <QQuickItem>

/// All that this program knows of Qt beyond its documentation: names of classes. Qt may change them
/// with any version; `ControlsTest::namesOfQtsOwnClasses` fails then.
namespace QtInternals {

/// Where QML's `Accessible` keeps what is set for the item; null where nothing is.
QObject *accessibleAttached(const QQuickItem *item);

/// Whether the item is a menu's title in a menu bar.
bool isMenuTitle(const QQuickItem *item);
/// Whether the window's popups lie in the item.
bool isOverlay(const QQuickItem *item);
/// The Popup, Menu or Dialog that is drawn by the item; null for other items.
const QObject *popupOf(const QQuickItem *item);

} // namespace QtInternals
