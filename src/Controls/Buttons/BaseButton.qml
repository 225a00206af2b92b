import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// What every button of the window is: pressed by pointer, Space, Return and assistive technology,
/// with a focus ring. `text` is its accessible name; the look is the caller's.
T.AbstractButton {
    id: button

    property real cornerRadius: VTRTheme.controlRadius
    /// The focus ring is shown. A list of buttons that is one tab stop decides by itself.
    property bool showsFocus: visualFocus

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    opacity: enabled ? 1 : 0.55

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: button.press()
    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()
    Keys.onSpacePressed: press()

    /// Acts as a click does; a disabled button does not.
    function press() {
        if (enabled)
            clicked();
    }

    FocusRing {
        control: button
        cornerRadius: button.cornerRadius
        visible: button.showsFocus
        z: 1
    }
}
