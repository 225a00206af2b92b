import QtQuick
import Vantora.Controls

/// A small label on a tint of its own colour, or on another ground.
Item {
    id: tag

    required property string text
    property color color: VTRTheme.vtrRed
    property real fillOpacity: 0.2
    /// The background; by default a tint of `color`.
    property color fill: VTRTheme.withOpacity(color, fillOpacity)
    property int weight: Font.Bold
    property int size: 10
    property real cornerRadius: 4
    property real horizontalPadding: 6
    property real verticalPadding: 2

    implicitWidth: label.implicitWidth + 2 * horizontalPadding
    implicitHeight: label.implicitHeight + 2 * verticalPadding

    RoundedSurface {
        anchors.fill: parent
        radius: tag.cornerRadius
        color: tag.fill
    }

    PlainText {
        id: label

        anchors.centerIn: parent
        width: Math.min(implicitWidth, tag.width - 2 * tag.horizontalPadding)
        elide: Text.ElideRight
        text: tag.text
        color: tag.color
        font.pixelSize: tag.size
        font.weight: tag.weight
    }
}
