import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The title of a menu in the menu bar. Its access key, the letter behind "&", is underlined while
/// Alt is held.
T.MenuBarItem {
    id: item

    /// Its menu is open, for assistive technology.
    readonly property bool isExpanded: menu.visible
    readonly property int mark: text.indexOf("&")
    readonly property ApplicationWindow window: Window.window as ApplicationWindow
    readonly property bool isAltHeld: window !== null && window.isAltHeld

    component Letters: PlainText {
        font.pixelSize: 12
        color: VTRTheme.textSecondary
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 8
    verticalPadding: 4
    Accessible.name: text.replace("&", "")
    Accessible.onPressAction: item.menu.open()

    background: Rectangle {
        radius: 6
        // After a menu was closed its title stays highlighted, for the arrow keys.
        color: item.hovered || item.menu.visible || (item.highlighted && item.menuBar.activeFocus)
               ? VTRTheme.cardBgLight : "transparent"
    }
    contentItem: Row {
        Letters { text: item.text.slice(0, Math.max(item.mark, 0)) }

        Letters {
            text: item.text.slice(item.mark + 1, item.mark < 0 ? undefined : item.mark + 2)
            font.underline: item.mark >= 0 && item.isAltHeld
        }

        Letters { text: item.mark < 0 ? "" : item.text.slice(item.mark + 2) }
    }
}
