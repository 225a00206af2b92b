import QtQuick
import Vantora.Controls

/// A round button that shows one symbol. `text`, its accessible name, says what it does, and so does
/// its tip.
BaseButton {
    id: button

    required property string symbol
    property int symbolSize: 16
    property color color: VTRTheme.textSecondary
    /// Width and height of the button.
    property int frame: 28
    readonly property string tip: text

    implicitWidth: frame
    implicitHeight: frame
    cornerRadius: frame / 2

    background: Item {
        PressTint {
            control: button
            radius: button.cornerRadius
        }
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.symbol
            size: button.symbolSize
            color: button.hovered || button.down ? VTRTheme.textPrimary : button.color
        }
    }
}
