import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// One of several choices, made by one Repeater, of which one holds. Together they are one tab
/// stop, that of the choice that holds; the arrows click the one before or after. The look is the
/// caller's.
///
/// It stands on the template of the radio button: with Qt 6.4 a template's role is fixed, and
/// assistive technology would take a BaseButton for a plain button whatever role it were given.
T.RadioButton {
    id: choice

    required property Repeater choices
    required property int index
    required property bool isCurrent
    property real cornerRadius: VTRTheme.controlRadius

    /// Clicks the choice at `place` and gives it the keyboard; past the ends nothing happens.
    function move(place: int) {
        if (place < 0 || place >= choices.count)
            return;
        const other = choices.itemAt(place) as ChoiceButton;
        other.forceActiveFocus(Qt.TabFocusReason);
        other.clicked();
    }

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
    Keys.onSpacePressed: clicked()
    Keys.onLeftPressed: move(index - 1)
    Keys.onUpPressed: move(index - 1)
    Keys.onRightPressed: move(index + 1)
    Keys.onDownPressed: move(index + 1)

    FocusRing {
        control: choice
        cornerRadius: choice.cornerRadius
        visible: choice.visualFocus
        z: 1
    }
}
