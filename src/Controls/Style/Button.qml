import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A push button: pressed by pointer, keyboard and assistive technology, for which `text` is its
/// name. What matters most is `highlighted`, in the airline's red.
T.Button {
    id: button

    property real radius: VTRTheme.controlRadius
    /// The focus ring is shown. Lists that are a single tab stop bind it.
    property bool showsFocus: visualFocus

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 10
    verticalPadding: 6
    spacing: 6
    font.pixelSize: 12
    font.weight: Font.DemiBold
    icon.width: font.pixelSize
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.55

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: button.clicked()

    background: Item {
        FieldSurface {
            anchors.fill: parent
            visible: !button.highlighted
            color: button.pressed ? VTRTheme.cardBg
                                  : button.hovered ? Qt.lighter(VTRTheme.cardBgLight, 1.25) : VTRTheme.cardBgLight
        }
        RedSurface {
            anchors.fill: parent
            visible: button.highlighted
            radius: button.radius

            PressTint {
                control: button
            }
        }
    }
    contentItem: SymbolLabel {
        spacing: button.spacing
        symbol: button.icon.name
        symbolSize: button.icon.width
        isSymbolLast: button.mirrored
        text: button.text
        color: button.highlighted || button.hovered || button.pressed ? VTRTheme.textPrimary : VTRTheme.textSecondary
        size: button.font.pixelSize
        weight: button.font.weight
    }

    FocusRing {
        control: button
        cornerRadius: button.radius
        visible: button.showsFocus
        z: 1
    }
}
