import QtQuick
import Vantora.Controls

/// A local time over the code of its airport.
Column {
    id: block

    required property string time
    required property string airport
    required property int alignment

    width: 64
    spacing: 2

    PlainText {
        width: parent.width
        horizontalAlignment: block.alignment
        elide: Text.ElideRight
        text: block.time
        font.pixelSize: 20
        font.weight: Font.Bold
    }

    PlainText {
        width: parent.width
        horizontalAlignment: block.alignment
        elide: Text.ElideRight
        text: block.airport
        color: VTRTheme.textSecondary
    }
}
