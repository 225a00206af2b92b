import QtQuick
import Vantora.Controls

/// One popular route.
Button {
    id: button

    required property string origin
    required property string destination
    readonly property color ink: hovered || down ? VTRTheme.textPrimary : VTRTheme.textSecondary

    text: origin + " → " + destination + " uçuşlarını ara"
    radius: 6
    horizontalPadding: 8
    verticalPadding: 4
    // Otherwise the second click would ask again.
    onDoubleClicked: {}

    background: RoundedSurface {
        radius: button.radius
        color: VTRTheme.cardBgLight

        PressTint { control: button }
    }

    contentItem: Row {
        spacing: 4

        PlainText {
            text: button.origin
            font.pixelSize: 12
            font.weight: Font.Medium
            color: button.ink
        }

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "arrow.right"
            size: 10
            color: button.ink
        }

        PlainText {
            text: button.destination
            font.pixelSize: 12
            font.weight: Font.Medium
            color: button.ink
        }
    }
}
