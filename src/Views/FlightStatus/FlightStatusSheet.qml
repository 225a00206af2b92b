pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// Asks for the live status of one flight. Every opening starts with a state of its own.
Sheet {
    id: statusSheet

    objectName: "flightStatusSheet"
    title: "Canlı Uçuş Durumu Takibi"
    sheetWidth: 580
    sheetHeight: 480

    ScrollSheetContent {
        id: content

        readonly property FlightStatusViewModel viewModel: FlightStatusViewModel {}

        sheet: statusSheet
        symbol: "airplane.circle.fill"

        StatusQueryRow {
            Layout.fillWidth: true
            viewModel: content.viewModel
        }

        StatusAnswer {
            Layout.fillWidth: true
            viewModel: content.viewModel
        }
    }
}
