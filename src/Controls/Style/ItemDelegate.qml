import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A row of a list. Its icon, if any, stands before the text.
T.ItemDelegate {
    id: row

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: Math.max(32, implicitContentHeight + topPadding + bottomPadding)
    leftPadding: 32
    rightPadding: 12
    icon.width: 13
    font: VTRTheme.bodyFont
    hoverEnabled: true
    focusPolicy: Qt.NoFocus

    background: RoundedSurface {
        radius: 6
        color: row.highlighted ? VTRTheme.vtrRed : "transparent"

        PressTint {
            control: row
            isHovered: false
        }

        Symbol {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            visible: row.icon.name.length > 0
            name: row.icon.name
            size: row.icon.width
        }
    }
    contentItem: PlainText {
        text: row.text
        font: row.font
        verticalAlignment: Text.AlignVCenter
    }
}
