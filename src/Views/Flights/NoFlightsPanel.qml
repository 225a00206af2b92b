import QtQuick
import Vantora.Controls

/// What stands for the cards when the day has none to show.
Item {
    implicitHeight: content.implicitHeight + 100

    Column {
        id: content

        anchors.centerIn: parent
        width: parent.width - 100
        spacing: 12

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: "airplane.circle"
            size: 44
            color: VTRTheme.textMuted
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "Bu tarihte tarifeli uçuş bulunamadı"
            font.weight: Font.DemiBold
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            text: "Fiyat grafiğinden yakın tarihleri seçerek diğer seferleri inceleyebilirsiniz."
            color: VTRTheme.textMuted
        }
    }
}
