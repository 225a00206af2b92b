import QtQuick
import Vantora.Controls

/// What stands where something is being loaded.
Item {
    id: panel

    required property string text
    property real padding: 40
    property int textSize: VTRTheme.bodySize
    property color textColor: VTRTheme.textSecondary

    implicitWidth: content.implicitWidth + 2 * padding
    implicitHeight: content.implicitHeight + 2 * padding

    Column {
        id: content

        anchors.centerIn: parent
        width: parent.width - 2 * panel.padding
        spacing: 12

        BusyIndicator {
            anchors.horizontalCenter: parent.horizontalCenter
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: panel.text
            color: panel.textColor
            font.pixelSize: panel.textSize
        }
    }
}
