pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The bar with the titles of a window's menus.
T.MenuBar {
    id: menuBar

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    leftPadding: 20
    topPadding: 4
    Accessible.role: Accessible.MenuBar
    Accessible.name: "Menü çubuğu"

    background: Rectangle {
        color: VTRTheme.background
    }
    contentItem: Row {
        Repeater {
            model: menuBar.contentModel
        }
    }
    delegate: MenuBarItem {}
}
