pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The popular routes. Pressing one fills the form with it and searches at once.
Row {
    id: row

    required property FlightSearchViewModel viewModel
    /// Pairs of departure and arrival code.
    readonly property list<string> quickRoutes: ["IST-LHR", "IST-JFK", "SAW-AYT", "IST-CDG", "IST-DXB", "IST-FRA"]

    spacing: VTRTheme.spacing

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: "Popüler Rotalar:"
        font.pixelSize: 12
        color: VTRTheme.textMuted
    }

    Repeater {
        model: row.quickRoutes

        QuickRouteButton {
            required property string modelData

            origin: modelData.slice(0, 3)
            destination: modelData.slice(4)
            onClicked: {
                row.viewModel.originCode = origin;
                row.viewModel.destinationCode = destination;
                row.viewModel.startSearchAll();
            }
        }
    }
}
