import QtQuick
import Vantora.Controls

/// A button of the header bar: a symbol and a text.
BaseButton {
    id: button

    required property string symbol
    readonly property color ink: hovered || pressed ? VTRTheme.textPrimary : VTRTheme.textSecondary

    verticalPadding: 6
    horizontalPadding: 10

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: button.pressed ? VTRTheme.cardBg
                              : button.hovered ? Qt.lighter(VTRTheme.cardBgLight, 1.25) : VTRTheme.cardBgLight
        borderWidth: 1
        borderColor: VTRTheme.cardBorder
    }

    contentItem: SymbolLabel {
        spacing: 6
        symbol: button.symbol
        text: button.text
        color: button.ink
        size: 12
        weight: Font.DemiBold
    }
}
