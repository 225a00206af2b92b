pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The popular routes. Pressing one fills the form with it and searches at once.
Row {
    id: row

    required property FlightSearchViewModel viewModel

    spacing: VTRTheme.spacing

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: "Popüler Rotalar:"
        font.pixelSize: 12
        color: VTRTheme.textMuted
    }

    Repeater {
        model: ListModel {
            id: quickRoutes

            ListElement { origin: "IST"; destination: "LHR" }
            ListElement { origin: "IST"; destination: "JFK" }
            ListElement { origin: "SAW"; destination: "AYT" }
            ListElement { origin: "IST"; destination: "CDG" }
            ListElement { origin: "IST"; destination: "DXB" }
            ListElement { origin: "IST"; destination: "FRA" }
        }

        QuickRouteButton {
            onClicked: {
                row.viewModel.originCode = origin;
                row.viewModel.destinationCode = destination;
                row.viewModel.startSearchAll();
            }
        }
    }
}
