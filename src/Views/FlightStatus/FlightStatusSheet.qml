pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// Asks for the live status of one flight. Every opening starts with a state of its own. The answer is
/// a status card, progress, an error or an invitation, one at a time. A card stays while the next
/// question is under way, and, dimmed under the error, when that fails.
ScrollSheet {
    id: statusSheet

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

    objectName: "flightStatusSheet"
    title: "Canlı Uçuş Durumu Takibi"
    symbol: "airplane.circle.fill"
    implicitWidth: 580
    implicitHeight: 480
    hasDivider: true
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
            text: statusSheet.viewModel.flightNumber
            onTextChanged: statusSheet.viewModel.flightNumber = text
            onAccepted: if (!statusSheet.isLoading) statusSheet.viewModel.startSearchStatus()
            // The number that stands there is an example: typing replaces it.
            Component.onCompleted: selectAll()
        }

        DateField {
            objectName: "statusDateField"
            Layout.preferredWidth: 196
            Layout.fillHeight: true
            label: "Uçuş günü"
            fill: VTRTheme.cardBg
            value: statusSheet.viewModel.flightDate
            onEdited: value => statusSheet.viewModel.flightDate = value
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
            busy: statusSheet.isLoading
            onClicked: statusSheet.viewModel.startSearchStatus()
        }
    }

    ErrorBanner {
        objectName: "statusErrorBanner"
        Layout.fillWidth: true
        visible: statusSheet.viewModel.hasResult && statusSheet.viewModel.hasErrorMessage
        text: statusSheet.errorMessage
    }

    StatusResultCard {
        id: card

        objectName: "statusResultCard"
        Layout.fillWidth: true
        visible: statusSheet.viewModel.hasResult
        opacity: statusSheet.viewModel.hasErrorMessage ? VTRTheme.earlierOpacity : 1
        result: statusSheet.viewModel.result
    }

    LoadingPanel {
        id: loading

        objectName: "statusLoadingPanel"
        Layout.fillWidth: true
        visible: !statusSheet.viewModel.hasResult && statusSheet.isLoading
        padding: 50
        text: "Vantora Hava Yolları MCP sunucusundan canlı durum çekiliyor..."
        textSize: VTRTheme.calloutSize
        textColor: VTRTheme.textMuted
    }

    MessagePanel {
        id: error

        objectName: "statusErrorPanel"
        Layout.fillWidth: true
        visible: statusSheet.hasNothing && statusSheet.viewModel.hasErrorMessage
        padding: 40
        symbol: "exclamationmark.triangle.fill"
        symbolSize: 36
        symbolColor: VTRTheme.gold
        heading: "Uçuş bilgisi alınamadı"
        text: statusSheet.errorMessage
        hasTools: true
        textSize: VTRTheme.captionSize
    }

    MessagePanel {
        objectName: "statusEmptyPanel"
        Layout.fillWidth: true
        visible: statusSheet.hasNothing && !statusSheet.viewModel.hasErrorMessage
        symbol: "airplane.departure"
        symbolSize: 40
        symbolColor: VTRTheme.withOpacity(VTRTheme.textMuted, VTRTheme.textMuted.a * 0.5)
        heading: "VQ Uçuş Numarası Girin"
        headingColor: VTRTheme.textSecondary
        textSize: VTRTheme.captionSize
        text: "Rötar, kalkış kapısı, varış bagaj bandı ve anlık uçuş durumunu öğrenin."
    }
}
