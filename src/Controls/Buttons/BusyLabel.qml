import QtQuick
import Vantora.Controls

/// A symbol and a text, or a spinner and another text, in the room of the wider of the two.
Item {
    id: label

    required property string symbol
    required property string text
    required property bool busy
    required property string busyText
    required property int textSize

    implicitWidth: Math.max(idle.implicitWidth, working.implicitWidth)
    implicitHeight: Math.max(idle.implicitHeight, working.implicitHeight)

    SymbolLabel {
        id: idle

        anchors.centerIn: parent
        visible: !label.busy
        spacing: VTRTheme.spacing
        symbol: label.symbol
        text: label.text
        color: VTRTheme.textPrimary
        size: label.textSize
        weight: Font.Bold
    }

    Row {
        id: working

        anchors.centerIn: parent
        visible: label.busy
        spacing: VTRTheme.spacing

        ProgressSpinner {
            anchors.verticalCenter: parent.verticalCenter
            size: label.textSize + 2
            color: VTRTheme.textPrimary
        }
        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            visible: text.length > 0
            text: label.busyText
            font.pixelSize: label.textSize
            font.weight: Font.Bold
        }
    }
}
