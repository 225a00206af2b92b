pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// "Yardım": the airline's web site and its MCP server, opened in the browser.
T.Menu {
    id: menu

    component Entry: T.MenuItem {
        id: entry

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: implicitContentHeight + topPadding + bottomPadding
        leftPadding: 12
        rightPadding: 24
        verticalPadding: 7
        Accessible.role: Accessible.MenuItem
        Accessible.name: text
        Accessible.onPressAction: entry.triggered()

        background: MenuEntryGround {
            entry: entry
            isHighlighted: entry.highlighted
        }

        contentItem: PlainText {
            text: entry.text
        }
    }

    title: "&Yardım"
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 5
    margins: 4
    overlap: 1

    background: PopUpSurface {}

    contentItem: ListView {
        implicitWidth: 220
        implicitHeight: contentHeight
        interactive: false
        model: menu.contentModel
        currentIndex: menu.currentIndex
        keyNavigationWraps: true
    }

    Entry {
        text: "Vantora Resmi Web Sitesi"
        onTriggered: ExternalLinks.openWebSite()
    }

    Entry {
        text: "Vantora MCP Sunucusu"
        onTriggered: ExternalLinks.openMcpServer()
    }
}
