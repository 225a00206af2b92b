import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The tint of a control under the pointer and, stronger, while it is pressed. Where the
/// hover has a look of its own, `isHovered` is false. It has the corners of the surface it lies on.
Rectangle {
    id: tint

    /// The button that is tinted; a control of another kind binds the two states.
    property T.AbstractButton control: null
    property bool isDown: control !== null && control.down
    property bool isHovered: control !== null && control.hovered

    anchors.fill: parent
    radius: (parent as RoundedSurface)?.radius ?? 0
    color: VTRTheme.textPrimary
    opacity: isDown ? 0.12 : isHovered ? 0.06 : 0
    Accessible.ignored: true

    Behavior on opacity {
        NumberAnimation { duration: Motion.HoverDuration }
    }
}
