import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The background of an item in what drops down: red where the keyboard or the pointer is.
RoundedSurface {
    id: highlight

    required property T.AbstractButton control
    required property bool isShown

    radius: 6
    color: isShown ? VTRTheme.vtrRed : "transparent"

    PressTint {
        control: highlight.control
        isHovered: false
        radius: highlight.radius
    }
}
