import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// One of several choices of which one holds. Together they are one tab stop, that of the choice
/// that holds; the arrows ask for the one before or after by `moved`. The look is the caller's.
///
/// It stands on the template of the radio button: with Qt 6.4 a template's role is fixed, and
/// assistive technology would take a BaseButton for a plain button whatever role it were given.
T.RadioButton {
    id: choice

    required property bool isCurrent
    property real cornerRadius: VTRTheme.controlRadius

    /// An arrow was pressed; `step` is 1 or -1.
    signal moved(int step)

    checked: isCurrent
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    hoverEnabled: true
    focusPolicy: isCurrent || activeFocus ? Qt.StrongFocus : Qt.ClickFocus

    Accessible.name: text
    Accessible.onPressAction: clicked()
    Accessible.onToggleAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onLeftPressed: moved(-1)
    Keys.onUpPressed: moved(-1)
    Keys.onRightPressed: moved(1)
    Keys.onDownPressed: moved(1)

    FocusRing {
        control: choice
        cornerRadius: choice.cornerRadius
        visible: choice.visualFocus
        z: 1
    }
}
