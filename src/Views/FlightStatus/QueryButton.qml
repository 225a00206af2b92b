import QtQuick
import Vantora

/// The button that asks for the status; while an answer is awaited it turns and cannot be pressed.
BaseButton {
    id: button

    required property bool isLoading

    text: "Sorgula"
    enabled: !isLoading
    cornerRadius: 6
    leftPadding: 16
    rightPadding: 16
    topPadding: 9
    bottomPadding: 9
    Accessible.description: isLoading ? "Sorgulanıyor" : ""

    background: RoundedSurface {
        radius: button.cornerRadius
        color: VTRTheme.redGradientStart
        gradientEnd: VTRTheme.redGradientEnd

        PressTint {
            control: button
            radius: button.cornerRadius
        }
    }

    // The label keeps its place while the spinner is shown, so that the row stands still.
    contentItem: Item {
        implicitWidth: label.implicitWidth
        implicitHeight: label.implicitHeight

        SymbolLabel {
            id: label

            anchors.centerIn: parent
            opacity: button.isLoading ? 0 : 1
            spacing: 6
            symbol: "magnifyingglass"
            text: button.text
            color: VTRTheme.textPrimary
            size: 13
            weight: Font.Bold
        }

        ProgressSpinner {
            anchors.centerIn: parent
            visible: button.isLoading
            size: 16
            color: VTRTheme.textPrimary
        }
    }
}
