import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The answer to the last question: a status card, progress, an error or an invitation, one at a
/// time. A card stays while the next question is under way, and, dimmed under the error, when that
/// fails.
ColumnLayout {
    id: answer

    required property FlightStatusViewModel viewModel
    readonly property bool isLoading: viewModel.isLoading
    readonly property string errorMessage: viewModel.errorMessage
    readonly property bool hasNothing: !viewModel.hasResult && !isLoading

    /// Announces what is under way, or what came of it.
    function announce() {
        ScreenReader.announce(isLoading ? loading.text
                                        : viewModel.hasErrorMessage ? error.heading + ". " + errorMessage
                                                                    : card.accessibleName);
    }

    spacing: VTRTheme.padding
    onIsLoadingChanged: announce()
    // Refused before it was asked.
    onErrorMessageChanged: if (!isLoading && viewModel.hasErrorMessage) announce()

    ErrorBanner {
        objectName: "statusErrorBanner"
        Layout.fillWidth: true
        visible: answer.viewModel.hasResult && answer.viewModel.hasErrorMessage
        text: answer.errorMessage
    }

    StatusResultCard {
        id: card

        objectName: "statusResultCard"
        Layout.fillWidth: true
        visible: answer.viewModel.hasResult
        opacity: answer.viewModel.hasErrorMessage ? VTRTheme.earlierOpacity : 1
        result: answer.viewModel.result
    }

    LoadingPanel {
        id: loading

        objectName: "statusLoadingPanel"
        Layout.fillWidth: true
        visible: !answer.viewModel.hasResult && answer.isLoading
        padding: 50
        text: "Vantora Hava Yolları MCP sunucusundan canlı durum çekiliyor..."
        textSize: VTRTheme.calloutSize
        textColor: VTRTheme.textMuted
    }

    MessagePanel {
        id: error

        objectName: "statusErrorPanel"
        Layout.fillWidth: true
        visible: answer.hasNothing && answer.viewModel.hasErrorMessage
        padding: 40
        symbol: "exclamationmark.triangle.fill"
        symbolSize: 36
        symbolColor: VTRTheme.gold
        heading: "Uçuş bilgisi alınamadı"
        text: answer.errorMessage
        hasTools: true
        textSize: VTRTheme.captionSize
    }

    MessagePanel {
        objectName: "statusEmptyPanel"
        Layout.fillWidth: true
        visible: answer.hasNothing && !answer.viewModel.hasErrorMessage
        symbol: "airplane.departure"
        symbolSize: 40
        symbolColor: VTRTheme.withOpacity(VTRTheme.textMuted, VTRTheme.textMuted.a * 0.5)
        heading: "VQ Uçuş Numarası Girin"
        headingColor: VTRTheme.textSecondary
        textSize: VTRTheme.captionSize
        text: "Rötar, kalkış kapısı, varış bagaj bandı ve anlık uçuş durumunu öğrenin."
    }
}
