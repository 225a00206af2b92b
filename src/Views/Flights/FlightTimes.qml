import QtQuick
import Vantora
import Vantora.Controls

/// Departure and arrival of a flight with the route between them: from a red dot over an aeroplane to
/// a green one.
Row {
    id: times

    required property flightOption flight
    required property string stopsText

    /// A local time over the code of its airport.
    component TimeAtAirport: Column {
        id: block

        required property string time
        required property string airport
        required property int alignment

        anchors.verticalCenter: parent.verticalCenter
        width: 64
        spacing: 2

        PlainText {
            width: parent.width
            horizontalAlignment: block.alignment
            elide: Text.ElideRight
            text: block.time
            font.pixelSize: 20
            font.weight: Font.Bold
        }

        PlainText {
            width: parent.width
            horizontalAlignment: block.alignment
            elide: Text.ElideRight
            text: block.airport
            color: VTRTheme.textSecondary
        }
    }

    component Dot: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 6
        height: 6
        radius: 3
        antialiasing: true
    }

    component Stretch: Rectangle {
        id: stretch

        required property color from
        required property color to

        anchors.verticalCenter: parent.verticalCenter
        width: 50
        height: 2
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: stretch.from }
            GradientStop { position: 1; color: stretch.to }
        }
    }

    spacing: 16

    TimeAtAirport {
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

        Row {
            anchors.horizontalCenter: parent.horizontalCenter

            Dot { color: VTRTheme.vtrRed }

            Stretch {
                from: VTRTheme.vtrRed
                to: Qt.rgba(1, 1, 1, 0.3)
            }

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                width: implicitWidth + 4
                name: "airplane"
                size: 11
                color: VTRTheme.textSecondary
            }

            Stretch {
                from: Qt.rgba(1, 1, 1, 0.3)
                to: VTRTheme.bestGreen
            }

            Dot { color: VTRTheme.bestGreen }
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: times.stopsText
            font.pixelSize: 10
            font.weight: Font.Bold
            color: times.flight.isDirect ? VTRTheme.bestGreen : VTRTheme.gold
        }
    }

    TimeAtAirport {
        time: times.flight.arrivalTime
        airport: times.flight.destination
        alignment: Text.AlignLeft
    }
}
