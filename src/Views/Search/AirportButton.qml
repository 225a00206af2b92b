import QtQuick
import Vantora

/// An airport of the route: a caption, the code and the name. Pressing it lets one choose another.
BaseButton {
    id: button

    required property string caption
    required property airport airport
    /// How far the airport is drawn beside its place, in pixels.
    property real shift: 0

    text: caption + ": " + airport.code + ", " + airport.name
    cornerRadius: 10
    horizontalPadding: 14
    verticalPadding: 10

    background: RoundedSurface {
        radius: button.cornerRadius
        color: VTRTheme.cardBgLight
        borderWidth: 1
        borderColor: button.hovered ? Qt.rgba(1, 1, 1, 0.18) : VTRTheme.cardBorder

        PressTint {
            control: button
            radius: button.cornerRadius
        }
    }

    contentItem: Column {
        spacing: 4

        PlainText {
            text: button.caption
            font.pixelSize: 11
            font.weight: Font.Bold
            color: VTRTheme.textMuted
        }

        PlainText {
            text: button.airport.code
            font.family: VTRTheme.monospacedFamily
            font.pixelSize: 18
            font.weight: Font.ExtraBold
            transform: Translate { x: button.shift }
        }

        PlainText {
            width: parent.width
            elide: Text.ElideRight
            text: "• " + button.airport.name
            font.weight: Font.Medium
            color: VTRTheme.textSecondary
            transform: Translate { x: button.shift }
        }
    }
}
