import QtQuick
import Vantora.Controls

/// A discount in white on green.
Item {
    id: badge

    required property string text

    implicitWidth: Math.ceil(label.implicitWidth) + 2 * 8
    implicitHeight: label.implicitHeight + 2 * 3

    RoundedSurface {
        anchors.fill: parent
        radius: 6
        color: VTRTheme.bestGreen
    }

    PlainText {
        id: label

        x: 8
        y: 3
        width: badge.width - 2 * 8
        elide: Text.ElideRight
        text: badge.text
        font.pixelSize: 11
        font.weight: Font.Bold
    }
}
