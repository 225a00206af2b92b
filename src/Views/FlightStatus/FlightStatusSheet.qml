pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// Asks for the live status of one flight. Every opening starts with a state of its own. The answer is
/// a status card, progress, an error or an invitation, one at a time. A card stays while the next
/// question is under way, and, dimmed under the error, when that fails.
Sheet {
    id: statusSheet

    objectName: "flightStatusSheet"
    title: "Canlı Uçuş Durumu Takibi"
    sheetWidth: 580
    sheetHeight: 480

    ScrollSheetContent {
        id: content

        readonly property FlightStatusViewModel viewModel: FlightStatusViewModel {}
        readonly property bool isLoading: viewModel.isLoading
        readonly property string errorMessage: viewModel.errorMessage
        readonly property bool hasNothing: !viewModel.hasResult && !isLoading

        /// Announces what is under way, or what came of it.
        function announce() {
            ScreenReader.announce(isLoading ? loading.text
                                            : viewModel.hasErrorMessage ? error.heading + ". " + errorMessage
                                                                        : card.accessibleName);
        }

        sheet: statusSheet
        symbol: "airplane.circle.fill"
        onIsLoadingChanged: announce()
        // Refused before it was asked.
        onErrorMessageChanged: if (!isLoading && viewModel.hasErrorMessage) announce()

        RowLayout {
            Layout.fillWidth: true
            spacing: VTRTheme.spacing

            TextField {
                Layout.fillWidth: true
                Layout.fillHeight: true
                focus: true
                Accessible.name: "Uçuş numarası"
                symbol: "ticket"
                placeholderText: "Uçuş No (örn: VQ1983)"
                font.pixelSize: 14
                font.weight: Font.Bold
                text: content.viewModel.flightNumber
                onTextChanged: content.viewModel.flightNumber = text
                onAccepted: if (!content.isLoading) content.viewModel.startSearchStatus()
                // The number that stands there is an example: typing replaces it.
                Component.onCompleted: selectAll()
            }

            DateField {
                objectName: "statusDateField"
                Layout.preferredWidth: 196
                Layout.fillHeight: true
                label: "Uçuş günü"
                fill: VTRTheme.cardBg
                value: content.viewModel.flightDate
                onEdited: value => content.viewModel.flightDate = value
            }

            BusyButton {
                objectName: "statusQueryButton"
                Layout.fillHeight: true
                horizontalPadding: 16
                verticalPadding: 9
                radius: 6
                isRaised: false
                icon.name: "magnifyingglass"
                text: "Sorgula"
                font.pixelSize: 13
                busy: content.isLoading
                onClicked: content.viewModel.startSearchStatus()
            }
        }

        ErrorBanner {
            objectName: "statusErrorBanner"
            Layout.fillWidth: true
            visible: content.viewModel.hasResult && content.viewModel.hasErrorMessage
            text: content.errorMessage
        }

        StatusResultCard {
            id: card

            objectName: "statusResultCard"
            Layout.fillWidth: true
            visible: content.viewModel.hasResult
            opacity: content.viewModel.hasErrorMessage ? VTRTheme.earlierOpacity : 1
            result: content.viewModel.result
        }

        LoadingPanel {
            id: loading

            objectName: "statusLoadingPanel"
            Layout.fillWidth: true
            visible: !content.viewModel.hasResult && content.isLoading
            padding: 50
            text: "Vantora Hava Yolları MCP sunucusundan canlı durum çekiliyor..."
            textSize: VTRTheme.calloutSize
            textColor: VTRTheme.textMuted
        }

        MessagePanel {
            id: error

            objectName: "statusErrorPanel"
            Layout.fillWidth: true
            visible: content.hasNothing && content.viewModel.hasErrorMessage
            padding: 40
            symbol: "exclamationmark.triangle.fill"
            symbolSize: 36
            symbolColor: VTRTheme.gold
            heading: "Uçuş bilgisi alınamadı"
            text: content.errorMessage
            hasTools: true
            textSize: VTRTheme.captionSize
        }

        MessagePanel {
            objectName: "statusEmptyPanel"
            Layout.fillWidth: true
            visible: content.hasNothing && !content.viewModel.hasErrorMessage
            symbol: "airplane.departure"
            symbolSize: 40
            symbolColor: VTRTheme.withOpacity(VTRTheme.textMuted, VTRTheme.textMuted.a * 0.5)
            heading: "VQ Uçuş Numarası Girin"
            headingColor: VTRTheme.textSecondary
            textSize: VTRTheme.captionSize
            text: "Rötar, kalkış kapısı, varış bagaj bandı ve anlık uçuş durumunu öğrenin."
        }
    }
}
