import QtQuick
import Vantora.Controls

/// A symbol with a text beside it.
Row {
    id: label

    required property string symbol
    required property string text
    property color color: VTRTheme.textMuted
    property int size: 10
    property int symbolSize: size
    /// The symbol stands behind the text.
    property bool isSymbolLast: false
    property int weight: Font.Normal
    /// What the text is for assistive technology.
    property int role: Accessible.StaticText

    spacing: 4
    layoutDirection: isSymbolLast ? Qt.RightToLeft : Qt.LeftToRight

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        name: label.symbol
        size: label.symbolSize
        color: label.color
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: label.text
        color: label.color
        font.pixelSize: label.size
        font.weight: label.weight
        Accessible.role: label.role
    }
}
