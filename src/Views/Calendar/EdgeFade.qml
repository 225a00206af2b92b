import QtQuick
import Vantora.Controls

/// Covers an edge of a row on a card while the row goes on behind it.
Rectangle {
    id: fade

    property bool isLeft: false
    required property bool isShown
    readonly property color clear: VTRTheme.withOpacity(VTRTheme.cardBg, 0)

    z: 1
    height: parent.height
    opacity: isShown ? 1 : 0
    gradient: Gradient {
        orientation: Gradient.Horizontal

        GradientStop { position: 0; color: fade.isLeft ? VTRTheme.cardBg : fade.clear }
        GradientStop { position: 1; color: fade.isLeft ? fade.clear : VTRTheme.cardBg }
    }
    Accessible.ignored: true

    Behavior on opacity {
        NumberAnimation { duration: Motion.hoverDuration }
    }
}
