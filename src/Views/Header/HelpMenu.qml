import QtQuick
import Vantora
import Vantora.Controls

/// "Yardım": the airline's web site and its MCP server, opened in the browser.
ActionMenu {
    title: "&Yardım"

    MenuEntry {
        text: "Vantora Resmi Web Sitesi"
        onTriggered: ExternalLinks.openWebSite()
    }

    MenuEntry {
        text: "Vantora MCP Sunucusu"
        onTriggered: ExternalLinks.openMcpServer()
    }
}
