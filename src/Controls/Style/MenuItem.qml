import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// An entry of a Menu.
T.MenuItem {
    id: item

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: 12
    rightPadding: 24
    verticalPadding: 7
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: item.clicked()

    background: RoundedSurface {
        radius: 6
        color: item.highlighted ? VTRTheme.vtrRed : "transparent"

        PressTint {
            control: item
            isHovered: false
        }
    }
    contentItem: PlainText {
        text: item.text
        opacity: item.enabled ? 1 : 0.4
    }
}
