pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// How the flights are sorted or filtered: one tab stop, within which the arrows move and choose.
Row {
    id: chips

    required property FlightSearchViewModel viewModel

    spacing: VTRTheme.spacing
    Accessible.role: Accessible.Grouping
    Accessible.name: "Sıralama ve filtre"

    Repeater {
        id: options

        model: SearchChoices.sortOptions

        BaseButton {
            id: chip

            required property int index
            required property string modelData
            readonly property bool isActive: index === chips.viewModel.activeFilter

            text: modelData
            checkable: false
            activeFocusOnTab: isActive
            focusPolicy: isActive ? Qt.StrongFocus : Qt.ClickFocus
            cornerRadius: height / 2
            showsFocus: activeFocus && !pointerPressedLast
            topPadding: 6
            bottomPadding: 6
            leftPadding: 12
            rightPadding: 12
            Accessible.role: Accessible.RadioButton
            Accessible.checkable: true
            Accessible.checked: isActive
            onClicked: chips.viewModel.applyFilter(index)
            onPressed: pointerPressedLast = true
            onActiveFocusChanged: if (!activeFocus) pointerPressedLast = false
            Keys.onLeftPressed: chips.choose(index - 1)
            Keys.onRightPressed: chips.choose(index + 1)

            property bool pointerPressedLast: false

            background: RoundedSurface {
                radius: height / 2
                color: chip.isActive ? VTRTheme.vtrRed
                                     : chip.hovered ? Qt.lighter(VTRTheme.cardBgLight, 1.25) : VTRTheme.cardBgLight
            }

            contentItem: PlainText {
                text: chip.text
                font.pixelSize: 12
                font.weight: chip.isActive ? Font.DemiBold : Font.Normal
                color: chip.isActive || chip.hovered ? VTRTheme.textPrimary : VTRTheme.textSecondary
            }
        }
    }

    /// Applies the option at `index` and moves the focus to its chip; stays at the ends.
    function choose(index: int) {
        const chip = options.itemAt(index) as BaseButton;
        if (!chip)
            return;
        chips.viewModel.applyFilter(index);
        chip.forceActiveFocus(Qt.TabFocusReason);
    }
}
