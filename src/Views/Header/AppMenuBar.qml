pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// The menu bar of the window: the help menu with the airline's two addresses.
T.MenuBar {
    id: menuBar

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    leftPadding: 20
    Accessible.name: "Menü çubuğu"
    topPadding: 4

    background: Rectangle {
        color: VTRTheme.background
    }

    contentItem: Row {
        Repeater {
            model: menuBar.contentModel
        }
    }

    delegate: T.MenuBarItem {
        id: barItem

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        horizontalPadding: 8
        verticalPadding: 4
        readonly property bool isExpanded: menu.visible

        Accessible.name: text.replace("&", "")
        Accessible.onPressAction: barItem.menu.open()
        Keys.onReturnPressed: menu.open()
        Keys.onEnterPressed: menu.open()
        Keys.onSpacePressed: menu.open()

        background: Rectangle {
            radius: 6
            // After a menu was closed its title stays highlighted, for the arrow keys.
            color: barItem.hovered || barItem.menu.visible || (barItem.highlighted && menuBar.activeFocus)
                   ? VTRTheme.cardBgLight : "transparent"
        }

        contentItem: MnemonicText {
            text: barItem.text
            showsMark: alt.isHeld
        }
    }

    HeldAlt {
        id: alt

        window: menuBar.Window.window
    }

    // The keyboard begins with the first entry.
    HelpMenu {
        id: help

        onOpened: currentIndex = (parent as T.MenuBarItem).hovered ? -1 : 0
    }

    Shortcut {
        sequences: ["F10"]
        onActivated: help.open()
    }
}
