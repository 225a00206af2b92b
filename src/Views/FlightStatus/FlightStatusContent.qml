import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The content of the flight status sheet: question and answer.
ScrollSheetContent {
    id: content

    readonly property FlightStatusViewModel viewModel: FlightStatusViewModel {}

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
