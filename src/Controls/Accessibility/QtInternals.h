#pragma once

#include <QQuickItem>
#include <QQuickWindow>

/// All that this program knows of Qt beyond its documentation: names of classes. Qt may change them
/// with any version; `ControlsTest::namesOfQtsOwnClasses` fails then.
namespace QtInternals {

enum class Kind {
    Other,
    Window,
    PopupItem,
    Text,
    Control, ///< a button of any kind, a menu item, a combo box
};

/// What the class of this name is the base of.
Kind kindOf(const QString &className);

/// Where QML's `Accessible` keeps what is set for the item; null where nothing is.
QObject *accessibleAttached(const QQuickItem *item);

bool isText(const QQuickItem *item);
/// Whether the window's popups lie in the item.
bool isOverlay(const QQuickItem *item);
/// The Popup, Menu or Dialog that is drawn by the item; null for other items.
const QObject *popupOf(const QQuickItem *item);
bool isMenu(const QObject *popup);

} // namespace QtInternals
