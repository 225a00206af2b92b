import QtQuick
import Vantora
import Vantora.Controls

/// The menu bar of the window: the help menu with the airline's web site and its MCP server, which
/// open in the browser.
MenuBar {
    property alias help: helpMenu

    Menu {
        id: helpMenu

        title: "&Yardım"
        // The keyboard begins with the first entry.
        onOpened: currentIndex = (parent as MenuBarItem).hovered ? -1 : 0

        MenuItem {
            text: "Vantora Resmi Web Sitesi"
            onTriggered: ExternalLinks.openWebSite()
        }

        MenuItem {
            text: "Vantora MCP Sunucusu"
            onTriggered: ExternalLinks.openMcpServer()
        }

        // The key that opens it closes it.
        Shortcut {
            sequence: "F10"
            enabled: helpMenu.visible
            onActivated: helpMenu.close()
        }
    }
}
