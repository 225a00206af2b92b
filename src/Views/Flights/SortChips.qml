pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// How the flights are sorted or filtered: one tab stop, within which the arrows move and choose.
Row {
    id: chips

    required property int currentOption

    signal chosen(option: int)

    spacing: VTRTheme.spacing
    Accessible.role: Accessible.Grouping
    Accessible.name: "Sıralama ve filtre"

    Repeater {
        id: options

        model: SearchChoices.sortOptions

        ChoiceButton {
            id: chip

            required property string modelData

            choices: options
            text: modelData
            isCurrent: index === chips.currentOption
            cornerRadius: height / 2
            verticalPadding: 6
            horizontalPadding: 12
            onClicked: chips.chosen(index)

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
            }
        }
    }
}
