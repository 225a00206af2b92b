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
        model: SearchChoices.sortOptions

        RadioButton {
            required property int index
            required property string modelData

            text: modelData
            checked: index === chips.currentOption
            onClicked: chips.chosen(index)
        }
    }
}
