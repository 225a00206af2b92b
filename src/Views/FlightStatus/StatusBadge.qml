import QtQuick
import Vantora.Controls

/// A status in words, with a dot, on a tint of its colour.
Item {
    id: badge

    required property string text
    required property color color

    implicitWidth: Math.ceil(label.implicitWidth) + label.x + 10
    implicitHeight: label.height + 2 * 4

    RoundedSurface {
        anchors.fill: parent
        radius: 12
        color: VTRTheme.withOpacity(badge.color, 0.15)
    }

    Rectangle {
        id: dot

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: 8
        height: 8
        radius: 4
        color: badge.color
        antialiasing: true
    }

    PlainText {
        id: label

        x: dot.x + dot.width + 6
        y: 4
        width: badge.width - x - 10
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        text: badge.text
        color: badge.color
        font.pixelSize: 12
        font.weight: Font.Bold
    }
}
