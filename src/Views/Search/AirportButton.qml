import QtQuick
import Vantora
import Vantora.Controls

/// An airport of the route: a caption, the code and the name. Pressing it lets one choose another.
Button {
    id: button

    required property string caption
    required property airport airport
    /// How far the airport is from here: 0 for in place, 1 for where the other button is, and less
    /// than 0 when the spring overshoots.
    property real away: 0
    /// From here to the other button, in pixels; negative to the left.
    property real distance: 0

    readonly property real halfway: Math.max(0, 4 * away * (1 - away))
    // The overshoot stays within the button.
    readonly property real shift: distance * (away > 0 ? away : 0.15 * away)

    text: caption + ": " + airport.code + ", " + airport.name
    radius: 10
    horizontalPadding: 14
    verticalPadding: 10

    // The row draws it.
    background: null
    contentItem: Column {
        spacing: 4

        PlainText {
            text: button.caption
            font.pixelSize: 11
            font.weight: Font.Bold
            color: VTRTheme.textMuted
        }

        Column {
            width: parent.width
            spacing: 4
            // They pass one above the other.
            opacity: 1 - 0.6 * button.halfway
            transform: Translate {
                x: button.shift
                y: Math.sign(button.distance) * -12 * button.halfway
            }

            PlainText {
                text: button.airport.code
                font.family: VTRTheme.monospacedFamily
                font.pixelSize: 18
                font.weight: Font.ExtraBold
            }

            PlainText {
                width: parent.width
                elide: Text.ElideRight
                text: "• " + button.airport.name
                font.weight: Font.Medium
                color: VTRTheme.textSecondary
            }
        }
    }
}
