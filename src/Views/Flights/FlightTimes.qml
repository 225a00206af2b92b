import QtQuick
import Vantora
import Vantora.Controls

/// Departure and arrival of a flight with the route between them.
Row {
    id: times

    required property flightOption flight

    spacing: 16

    TimeAtAirport {
        anchors.verticalCenter: parent.verticalCenter
        time: times.flight.departureTime
        airport: times.flight.origin
        alignment: Text.AlignRight
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: times.flight.duration
            font.pixelSize: 11
            font.weight: Font.Medium
            color: VTRTheme.textMuted
        }

        RouteLine {
            anchors.horizontalCenter: parent.horizontalCenter
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: FlightCardFormat.stopsText(times.flight.isDirect)
            font.pixelSize: 10
            font.weight: Font.Bold
            color: times.flight.isDirect ? VTRTheme.bestGreen : VTRTheme.gold
        }
    }

    TimeAtAirport {
        anchors.verticalCenter: parent.verticalCenter
        time: times.flight.arrivalTime
        airport: times.flight.destination
        alignment: Text.AlignLeft
    }
}
