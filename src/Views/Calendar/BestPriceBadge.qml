import QtQuick
import Vantora.Controls

/// The green badge that names the cheapest day. Pressed, it asks for that day.
Button {
    id: badge

    onTextChanged: arrival.restart()
    radius: 20
    horizontalPadding: 12
    verticalPadding: 6

    background: RoundedSurface {
        radius: badge.radius
        color: VTRTheme.bestGreen
        shadowColor: VTRTheme.withOpacity(VTRTheme.bestGreen, 0.4)
        shadowRadius: 6
        shadowOffset: 2

        PressTint { control: badge }
    }

    EaseInOut {
        id: arrival

        target: badge.contentItem
        property: "opacity"
        from: 0
        to: 1
        duration: Motion.ResultsDuration
    }

    contentItem: Row {
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "sparkles"
            size: 12
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, 320)
            elide: Text.ElideRight
            text: badge.text
            font.pixelSize: 12
            font.weight: Font.Bold
        }
    }
}
