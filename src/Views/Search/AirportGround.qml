import QtQuick
import Vantora
import Vantora.Controls

/// The ground of an airport button, drawn apart from it: see RouteRow.
RoundedSurface {
    id: ground

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
        control: ground.button
        radius: ground.radius
    }
}
