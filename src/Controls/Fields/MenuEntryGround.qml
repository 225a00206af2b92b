import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The ground of an entry of what drops down: red where the keyboard or the pointer is.
RoundedSurface {
    id: ground

    required property T.AbstractButton entry
    required property bool isHighlighted

    radius: 6
    color: isHighlighted ? VTRTheme.vtrRed : "transparent"

    PressTint {
        control: ground.entry
        isHovered: false
        radius: ground.radius
    }
}
