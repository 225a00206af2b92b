import QtQuick
import Vantora
import Vantora.Controls

/// What a bar and a tile of the fare chart have in common: a day in a strip of days.
BaseButton {
    id: day

    required property int index
    required property dailyPrice price
    required property string currency
    required property string selectedDate
    required property DayStrip strip
    /// Where the day is drawn in the strip.
    required property real topInStrip
    /// The day is new in the strip, not scrolled to.
    required property bool fadesIn
    property bool isThere: !fadesIn

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

    // A list decides about the place of its delegates, not about what is drawn there.
    transform: Translate { y: day.topInStrip }
    width: strip.dayWidth
    opacity: isThere ? 1 : 0
    focusPolicy: Qt.NoFocus
    showsFocus: strip.showsFocus && ListView.isCurrentItem
    onPressed: strip.pressed(index)
    // Otherwise the second click would ask again.
    onDoubleClicked: {}
    Component.onCompleted: isThere = true

    Behavior on opacity {
        EaseInOut { duration: Motion.resultsDuration }
    }
}
