import QtQuick
import Vantora.Controls

/// A round button that shows its icon alone. `text`, its accessible name, says what it does, and so
/// does its tool tip.
Button {
    id: button

    readonly property string toolTip: text

    onHoveredChanged: (Window.window as ApplicationWindow)?.toolTip.showFor(button, hovered)

    implicitWidth: 28
    implicitHeight: 28
    radius: height / 2
    icon.width: 16
    icon.color: VTRTheme.textSecondary

    background: Item {
        PressTint {
            control: button
            radius: button.radius
        }
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: button.icon.name
            size: button.icon.width
            color: button.hovered || button.down ? VTRTheme.textPrimary : button.icon.color
        }
    }
}
