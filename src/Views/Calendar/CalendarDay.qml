import QtQuick
import Vantora
import Vantora.Controls

/// What a bar and a tile of the fare chart have in common.
Button {
    id: day

    required property dailyPrice price
    required property string currency
    required property string selectedDate

    readonly property bool isBest: price.isBestPrice
    readonly property bool isSelected: price.date === selectedDate
    readonly property bool isHovered: hovered

    /// The best day stays green, also when it is the selected one.
    function bestFirst(best: color, selected: color, plain: color): color {
        return isBest ? best : isSelected ? selected : plain;
    }

    function selectedFirst(selected: color, best: color, plain: color): color {
        return isSelected ? selected : isBest ? best : plain;
    }

    focusPolicy: Qt.NoFocus
    showsFocus: false
    // Otherwise the second click would ask again.
    onDoubleClicked: {}
}
