pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The content of the window: the search form, the fare chart and the flights, on one page.
FocusScope {
    id: mainView

    readonly property FlightSearchViewModel viewModel: FlightSearchViewModel {}
    property alias showFlightStatusSheet: flightStatusSheet.isOpen
    property alias showCityGuideSheet: cityGuideSheet.isOpen

    Component.onCompleted: viewModel.startSearchAll()

    Connections {
        target: mainView.viewModel

        function onErrorMessageChanged() {
            if (mainView.viewModel.hasErrorMessage)
                error.message = mainView.viewModel.errorMessage;
        }
    }

    // Keys that the controls leave alone scroll the page.
    Keys.forwardTo: [scrollPage]

    ScrollPage {
        id: scrollPage

        objectName: "page"
        anchors.fill: parent
        leastWidth: 1080
        contentHeight: content.y + content.height + results.roomBelow

        Column {
            id: content

            readonly property real gap: 20

            x: 28
            y: gap
            width: scrollPage.contentWidth - 2 * x

            Column {
                id: top

                width: parent.width
                spacing: content.gap

                HeaderBar {
                    width: parent.width
                    onFlightStatusRequested: flightStatusSheet.isOpen = true
                    onCityGuideRequested: cityGuideSheet.isOpen = true
                }

                IntroView {
                    width: parent.width
                }

                FlightSearchCardView {
                    width: parent.width
                    viewModel: mainView.viewModel
                }
            }

            FoldingSlot {
                id: error

                /// It stays while the banner leaves.
                property string message
                readonly property real bannerTop: topInPage + gap

                objectName: "errorSlot"
                width: parent.width
                page: scrollPage
                topInPage: content.y + top.height
                gap: content.gap
                isOpen: mainView.viewModel.hasErrorMessage

                ErrorBanner {
                    width: error.width
                    text: error.message
                }
            }

            // The chart fades and slides in when a calendar with days arrives, and out when one without
            // any does.
            FoldingSlot {
                id: chart

                objectName: "fareChart"
                width: parent.width
                page: scrollPage
                topInPage: error.topInPage + error.height
                gap: content.gap
                isOpen: mainView.viewModel.calendarPrices.count > 0

                PriceCalendarView {
                    width: chart.width
                    viewModel: mainView.viewModel
                }
            }

            Item {
                width: parent.width
                height: content.gap
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

    ErrorStrip {
        objectName: "errorStrip"
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(content.width, 760)
        message: error.message
        hasError: error.isOpen
        isBannerAbove: error.bannerTop < scrollPage.contentY
        isBannerBelow: error.bannerTop + 40 > scrollPage.contentY + scrollPage.height
        onClicked: {
            // The keyboard does not stay with what goes out of sight.
            if (activeFocus)
                error.nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason);
            scrollPage.showRange(error.bannerTop, error.topInPage + error.height);
        }
    }

    SheetLoader {
        id: flightStatusSheet

        file: Qt.resolvedUrl("FlightStatusSheet.qml")
    }

    SheetLoader {
        id: cityGuideSheet

        file: Qt.resolvedUrl("CityGuideSheet.qml")
        values: ({ search: mainView.viewModel })
    }
}
