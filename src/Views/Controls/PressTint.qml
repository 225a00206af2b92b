import QtQuick
import QtQuick.Templates as T
import Vantora

/// The veil that every control wears under the pointer and, stronger, while it is pressed.
Rectangle {
    id: tint

    required property T.AbstractButton control

    anchors.fill: parent
    color: VTRTheme.textPrimary
    opacity: control.down ? 0.12 : control.hovered ? 0.06 : 0
    Accessible.ignored: true

    Behavior on opacity {
        NumberAnimation { duration: Motion.hoverDuration }
    }
}
