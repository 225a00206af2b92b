import QtQuick
import QtQuick.Layouts
import Vantora

/// The two airports with the button between them that makes them change places.
RowLayout {
    id: row

    required property FlightSearchViewModel viewModel
    /// How far the airports still are from their places: 1 where they came from, 0 in place.
    property real away: 0
    readonly property real distance: destination.x - origin.x

    signal originPressed
    signal destinationPressed

    spacing: 12

    NumberAnimation {
        id: exchange

        target: row
        property: "away"
        from: 1
        to: 0
        duration: Motion.swapDuration
        easing.type: Easing.BezierSpline
        easing.bezierCurve: Motion.swapCurve
    }

    AirportButton {
        id: origin

        objectName: "originButton"
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        caption: "Kalkış Yeri"
        airport: row.viewModel.originAirport
        shift: row.away * row.distance
        onClicked: row.originPressed()
    }

    IconButton {
        objectName: "swapButton"
        symbol: "arrow.left.arrow.right"
        symbolSize: 18
        frame: 36
        text: "Kalkış ve varışı değiştir"
        onClicked: {
            row.viewModel.swapAirports();
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
        shift: -row.away * row.distance
        onClicked: row.destinationPressed()
    }
}
