import QtQuick
import Vantora.Controls

/// The airline's mark with the flight number and the aircraft.
Row {
    id: identity

    required property string flightNumber
    required property string aircraft

    spacing: 12

    RedSurface {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        width: 44
        height: 44
        radius: 22

        Symbol {
            anchors.centerIn: parent
            rotation: -45
            name: "airplane"
            size: 20
        }
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: identity.width - mark.width - identity.spacing
        spacing: 4

        Row {
            width: parent.width
            spacing: 6

            PlainText {
                width: Math.min(implicitWidth, parent.width - carrier.width - parent.spacing)
                elide: Text.ElideRight
                text: identity.flightNumber
                font.pixelSize: 16
                font.weight: Font.Bold
            }

            Tag {
                id: carrier

                anchors.verticalCenter: parent.verticalCenter
                text: "VTR"
                weight: Font.ExtraBold
            }
        }

        PlainText {
            width: parent.width
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            text: identity.aircraft
            font.pixelSize: 11
            color: VTRTheme.textMuted
        }
    }
}
