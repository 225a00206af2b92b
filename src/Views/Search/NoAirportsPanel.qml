import QtQuick
import Vantora.Controls

/// What stands for the airports when none matches.
Item {
    implicitHeight: content.implicitHeight + 80

    Column {
        id: content

        anchors.centerIn: parent
        width: parent.width - 80
        spacing: VTRTheme.spacing

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "airplane.circle"
            size: 36
            color: VTRTheme.textMuted
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Eşleşen havalimanı bulunamadı"
            font.pixelSize: VTRTheme.calloutSize
            color: VTRTheme.textMuted
        }
    }
}
