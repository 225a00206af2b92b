import QtQuick
import Vantora.Controls

/// One detail of a status, such as the gate. It is seen only when there is a value.
Item {
    id: detail

    required property string symbol
    required property string label
    required property string value
    /// The detail becomes no wider than this.
    required property real widest
    readonly property real gap: 12
    readonly property bool hasValue: value.length > 0

    visible: hasValue
    // In a row details stand further apart than rows do.
    implicitWidth: caption.x + caption.width + gap
    implicitHeight: Math.max(icon.implicitHeight, caption.implicitHeight)

    Symbol {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        name: detail.symbol
        size: 12
        color: VTRTheme.textSecondary
    }

    PlainText {
        id: caption

        x: icon.width + 6
        anchors.verticalCenter: parent.verticalCenter
        width: Math.min(Math.ceil(implicitWidth), detail.widest - x - detail.gap)
        elide: Text.ElideRight
        text: detail.label + ": " + detail.value
        color: VTRTheme.textSecondary
        font.pixelSize: 12
        font.weight: Font.Medium
    }
}
