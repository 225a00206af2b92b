import QtQuick
import Vantora.Controls

/// Says that the flights below are not those of the day and the route above, but of an earlier
/// search.
RoundedSurface {
    id: note

    required property string search

    implicitHeight: Math.ceil(label.implicitHeight) + 2 * 8
    radius: VTRTheme.controlRadius
    color: VTRTheme.withOpacity(VTRTheme.gold, 0.12)

    Symbol {
        id: symbol

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: "clock.arrow.circlepath"
        size: 14
        color: VTRTheme.gold
    }

    PlainText {
        id: label

        anchors.left: symbol.right
        anchors.right: parent.right
        anchors.margins: 8
        y: 8
        wrapMode: Text.Wrap
        text: "Aşağıdaki uçuşlar önceki aramaya ait: " + note.search
        font.pixelSize: VTRTheme.calloutSize
        font.weight: Font.Medium
    }
}
