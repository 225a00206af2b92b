import QtQuick
import Vantora
import Vantora.Controls

/// The content of the window: the search form, the fare chart and the flights, on one page.
FocusScope {
    id: mainView

    readonly property FlightSearchViewModel viewModel: FlightSearchViewModel {}
    property alias showFlightStatusSheet: flightStatusSheet.visible
    property alias showCityGuideSheet: cityGuideSheet.visible

    // A wider window gives its content room up to here, and then margins.
    readonly property real widestContent: 1440

    Component.onCompleted: viewModel.startSearchAll()

    ScrollPage {
        id: scrollPage

        objectName: "page"
        anchors.fill: parent
        contentHeight: content.y + content.height + results.roomBelow

        Column {
            id: content

            anchors.horizontalCenter: parent.horizontalCenter
            y: 20
            width: Math.min(scrollPage.width - 2 * 28, mainView.widestContent)
            spacing: 20

            HeaderBar {
                width: parent.width
                onFlightStatusRequested: flightStatusSheet.open()
                onCityGuideRequested: cityGuideSheet.open()
            }

            IntroView {
                width: parent.width
            }

            FlightSearchCardView {
                width: parent.width
                viewModel: mainView.viewModel
            }

            ErrorBanner {
                width: parent.width
                visible: mainView.viewModel.hasErrorMessage
                text: mainView.viewModel.errorMessage
            }

            CalendarSlot {
                width: parent.width
                viewModel: mainView.viewModel
            }

            FlightResultsSection {
                id: results

                objectName: "flightResults"
                width: parent.width
                visible: mainView.viewModel.hasSearched
                viewModel: mainView.viewModel
                page: scrollPage
                topInPage: content.y + y
                roomBelow: 40
            }
        }
    }

    FlightStatusSheet {
        id: flightStatusSheet

        objectName: "flightStatusSheet"
    }

    CityGuideSheet {
        id: cityGuideSheet

        objectName: "cityGuideSheet"
        destinationCode: mainView.viewModel.destinationCode
    }
}
