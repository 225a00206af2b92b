import QtQuick
import Vantora
import Vantora.Controls

/// The background of an airport button, drawn apart from it: see RouteRow.
RoundedSurface {
    id: background

    required property AirportButton button

    x: button.x
    y: button.y
    width: button.width
    height: button.height
    radius: button.radius
    color: VTRTheme.cardBgLight
    borderWidth: 1
    borderColor: button.hovered ? Qt.rgba(1, 1, 1, 0.18) : VTRTheme.cardBorder

    PressTint {
        control: background.button
        radius: background.radius
    }
}
