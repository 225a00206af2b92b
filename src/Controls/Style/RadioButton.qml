import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// One of several choices with the same parent, of which one is checked, drawn as a chip. Together
/// they are one tab stop, that of the checked one; the arrows click the one before or after.
T.RadioButton {
    id: button

    property real radius: height / 2

    /// Clicks the choice before (-1) or after (1) this one and gives it the keyboard; past the ends
    /// nothing happens.
    function step(by: int) {
        const choices = Array.from(parent.children).filter(child => child as RadioButton);
        const other = choices[choices.indexOf(button) + by] as RadioButton;
        if (!other)
            return;
        other.forceActiveFocus(Qt.TabFocusReason);
        other.clicked();
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 12
    verticalPadding: 6
    font.pixelSize: 12
    font.weight: checked ? Font.DemiBold : Font.Normal
    hoverEnabled: true
    focusPolicy: checked || activeFocus ? Qt.StrongFocus : Qt.ClickFocus

    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.onPressAction: button.clicked()
    Keys.onLeftPressed: step(-1)
    Keys.onUpPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onDownPressed: step(1)

    background: RoundedSurface {
        radius: button.radius
        color: button.checked ? VTRTheme.vtrRed
                              : button.hovered ? Qt.lighter(VTRTheme.cardBgLight, 1.25) : VTRTheme.cardBgLight

        PressTint {
            control: button
            isHovered: button.checked && button.hovered
        }
    }
    contentItem: PlainText {
        text: button.text
        font.pixelSize: button.font.pixelSize
        font.weight: button.font.weight
        color: button.checked || button.hovered ? VTRTheme.textPrimary : VTRTheme.textSecondary
    }

    FocusRing {
        control: button
        cornerRadius: button.radius
        visible: button.visualFocus
        z: 1
    }
}
