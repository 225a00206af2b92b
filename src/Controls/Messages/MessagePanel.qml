import QtQuick
import Vantora.Controls

/// What stands where there is nothing to show: a symbol, a heading and, optionally, a line that
/// explains it. A line that came from elsewhere may be long: `hasTools` lets one unfold and copy it.
Item {
    id: panel

    required property string symbol
    required property int symbolSize
    property color symbolColor: VTRTheme.textMuted
    required property string heading
    property color headingColor: VTRTheme.textPrimary
    property int headingSize: VTRTheme.headlineSize
    property int headingWeight: Font.Bold
    property string text
    property int textSize: VTRTheme.bodySize
    property bool hasTools: false
    property real padding: 50
    property real spacing: VTRTheme.spacing

    implicitHeight: content.implicitHeight + 2 * padding

    Column {
        id: content

        anchors.centerIn: parent
        width: parent.width - 2 * panel.padding
        spacing: panel.spacing

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
            font.pixelSize: panel.headingSize
            font.weight: panel.headingWeight
            Accessible.role: Accessible.Heading
        }

        PlainText {
            id: line

            // A server may answer with a whole page; its beginning says enough.
            width: parent.width
            visible: panel.text.length > 0
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            maximumLineCount: tools.isUnfolded ? 10000 : 6
            elide: Text.ElideRight
            text: panel.text
            color: VTRTheme.textMuted
            font.pixelSize: panel.textSize
        }

        MessageTools {
            id: tools

            anchors.horizontalCenter: parent.horizontalCenter
            visible: panel.hasTools
            text: panel.text
            isCut: line.truncated
        }
    }
}
