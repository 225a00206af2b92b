import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The content of the flight status sheet: header, question and answer.
FocusScope {
    id: query

    required property Sheet sheet
    readonly property FlightStatusViewModel viewModel: FlightStatusViewModel {}

    focus: true
    // Keys that the controls leave alone scroll the page.
    Keys.forwardTo: [page]

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        SheetHeader {
            Layout.fillWidth: true
            sheet: query.sheet
            symbol: "airplane.circle.fill"
        }

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: VTRTheme.cardBorder
        }

        ScrollPage {
            id: page

            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            contentHeight: content.height + 2 * VTRTheme.padding

            ColumnLayout {
                id: content

                x: VTRTheme.padding
                y: VTRTheme.padding
                width: page.width - 2 * VTRTheme.padding
                spacing: VTRTheme.padding

                StatusQueryRow {
                    Layout.fillWidth: true
                    viewModel: query.viewModel
                }

                StatusAnswer {
                    Layout.fillWidth: true
                    viewModel: query.viewModel
                }
            }
        }
    }
}
