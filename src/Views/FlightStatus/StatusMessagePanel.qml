import QtQuick
import Vantora.Controls

/// What stands in the place of a status card: a symbol, a heading and a line that explains it.
Item {
    id: panel

    required property string symbol
    required property int symbolSize
    required property color symbolColor
    required property string heading
    required property color headingColor
    required property string text
    property real padding: 50

    implicitHeight: content.implicitHeight + 2 * padding
    Accessible.role: Accessible.Pane
    Accessible.name: heading + ". " + text

    Column {
        id: content

        anchors.centerIn: parent
        width: parent.width - 2 * panel.padding
        spacing: VTRTheme.spacing

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            name: panel.symbol
            size: panel.symbolSize
            color: panel.symbolColor
        }

        PlainText {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: panel.heading
            color: panel.headingColor
            font.pixelSize: VTRTheme.headlineSize
            font.weight: Font.Bold
        }

        PlainText {
            // A server may answer with a whole page; its beginning says enough.
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: 6
            elide: Text.ElideRight
            text: panel.text
            color: VTRTheme.textMuted
            font.pixelSize: VTRTheme.captionSize
        }
    }
}
