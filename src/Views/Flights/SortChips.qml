pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

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

        ChoiceButton {
            id: chip

            required property int index
            required property string modelData

            text: modelData
            isCurrent: index === chips.viewModel.activeFilter
            cornerRadius: height / 2
            topPadding: 6
            bottomPadding: 6
            leftPadding: 12
            rightPadding: 12
            onClicked: chips.viewModel.applyFilter(index)
            onMoved: step => chips.choose(index + step)

            background: RoundedSurface {
                radius: height / 2
                color: chip.isCurrent ? VTRTheme.vtrRed
                                      : chip.hovered ? Qt.lighter(VTRTheme.cardBgLight, 1.25) : VTRTheme.cardBgLight

                PressTint {
                    control: chip
                    isHovered: chip.isCurrent && chip.hovered
                    radius: chip.cornerRadius
                }
            }
            contentItem: PlainText {
                text: chip.text
                font.pixelSize: 12
                font.weight: chip.isCurrent ? Font.DemiBold : Font.Normal
                color: chip.isCurrent || chip.hovered ? VTRTheme.textPrimary : VTRTheme.textSecondary
                Accessible.ignored: true
            }
        }
    }

    /// Applies the option at `index` and moves the focus to its chip; stays at the ends.
    function choose(index: int) {
        if (index < 0 || index >= options.count)
            return;
        options.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        chips.viewModel.applyFilter(index);
    }
}
