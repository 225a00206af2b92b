import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The two airports with the button between them that makes them change places.
Item {
    id: row

    required property FlightSearchViewModel viewModel
    /// How far the airports still are from their places: 1 where they came from, 0 in place.
    property real away: 0
    readonly property real distance: destination.x - origin.x

    component Background: RoundedSurface {
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

        PressTint { control: background.button }
    }

    signal originPressed
    signal destinationPressed

    implicitHeight: layout.implicitHeight

    // A spring of response 0.35 s and damping fraction 0.7, in the steps of 16 ms that Qt takes.
    SpringAnimation {
        id: exchange

        target: row
        property: "away"
        to: 0
        spring: 4.22
        damping: 0.331
        epsilon: 0.001
    }

    // Both backgrounds lie under both airports, which cross them when they change places.
    Background { button: origin }
    Background { button: destination }

    RowLayout {
        id: layout

        anchors.fill: parent
        spacing: 12

        AirportButton {
            id: origin

            objectName: "originButton"
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            caption: "Kalkış Yeri"
            airport: row.viewModel.originAirport
            away: row.away
            distance: row.distance
            onClicked: row.originPressed()
        }

        ToolButton {
            objectName: "swapButton"
            implicitWidth: 36
            implicitHeight: 36
            icon.name: "arrow.left.arrow.right"
            icon.width: 18
            text: "Kalkış ve varışı değiştir"
            onClicked: {
                row.viewModel.swapAirports();
                ScreenReader.announce(origin.text + ". " + destination.text);
                // Pressed again on the way, the airports turn back from where they are.
                row.away = 1 - row.away;
                exchange.restart();
            }
        }

        AirportButton {
            id: destination

            objectName: "destinationButton"
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            caption: "Varış Yeri"
            airport: row.viewModel.destinationAirport
            away: row.away
            distance: -row.distance
            onClicked: row.destinationPressed()
        }
    }
}
