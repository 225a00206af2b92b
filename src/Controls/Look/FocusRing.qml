import QtQuick
import Vantora.Controls

/// The ring around the control that has the keyboard.
Rectangle {
    required property Item control
    /// Corner radius of the control.
    property real cornerRadius: VTRTheme.controlRadius

    anchors.fill: control
    anchors.margins: -3
    radius: cornerRadius + 3
    visible: false
    color: "transparent"
    border.width: 2
    border.color: Qt.lighter(VTRTheme.blue, 1.25)
    antialiasing: true
    // Keyboard focus shows the tool tip, as hovering does.
    onVisibleChanged: (Window.window as ApplicationWindow)?.toolTip.showFor(control, visible)
}
