import QtQuick
import QtQuick.Layouts
import Vantora

/// The answer to the last question: exactly one of a status card, progress, an error or an
/// invitation. A card stays while the next question is under way, and when that fails; what went
/// wrong then stands in a line above it.
ColumnLayout {
    id: answer

    required property FlightStatusViewModel viewModel

    spacing: 12

    InlineError {
        objectName: "statusInlineError"
        Layout.fillWidth: true
        visible: answer.viewModel.hasResult && answer.viewModel.hasErrorMessage
        text: answer.viewModel.errorMessage
    }

    Loader {
        Layout.fillWidth: true
        sourceComponent: answer.viewModel.hasResult ? cardPanel
                       : answer.viewModel.isLoading ? progressPanel
                       : answer.viewModel.hasErrorMessage ? errorPanel : invitationPanel
    }

    Component {
        id: cardPanel

        StatusResultCard {
            objectName: "statusResultCard"
            result: answer.viewModel.result
        }
    }

    Component {
        id: progressPanel

        LoadingPanel {
            objectName: "statusLoadingPanel"
            padding: 50
            text: "Vantora Hava Yolları MCP sunucusundan canlı durum çekiliyor..."
            textSize: VTRTheme.calloutSize
            textColor: VTRTheme.textMuted
        }
    }

    Component {
        id: errorPanel

        StatusMessagePanel {
            objectName: "statusErrorPanel"
            padding: 40
            symbol: "exclamationmark.triangle.fill"
            symbolSize: 36
            symbolColor: VTRTheme.gold
            heading: "Uçuş bilgisi alınamadı"
            headingColor: VTRTheme.textPrimary
            text: answer.viewModel.errorMessage
            Accessible.role: Accessible.AlertMessage
        }
    }

    Component {
        id: invitationPanel

        StatusMessagePanel {
            objectName: "statusEmptyPanel"
            symbol: "airplane.departure"
            symbolSize: 40
            symbolColor: VTRTheme.withOpacity(VTRTheme.textMuted, VTRTheme.textMuted.a * 0.5)
            heading: "VQ Uçuş Numarası Girin"
            headingColor: VTRTheme.textSecondary
            text: "Rötar, kalkış kapısı, varış bagaj bandı ve anlık uçuş durumunu öğrenin."
        }
    }
}
