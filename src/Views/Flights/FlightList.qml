pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// The flight cards inside the page that scrolls them. Only the cards near the page's viewport
/// exist, so that thousands of flights open as fast as ten. A card's place follows from its row.
FocusScope {
    id: area

    required property FlightSearchViewModel viewModel
    required property ScrollPage page
    /// Where this item begins in the page's content.
    required property real topInPage

    readonly property int cardHeight: 104
    readonly property int cardSpacing: 12
    readonly property int cardPitch: cardHeight + cardSpacing
    readonly property int count: viewModel.filteredFlights.count
    property int currentRow: 0
    readonly property bool showsFocus: activeFocus && !pointerMovedLast
    property bool pointerMovedLast: false
    /// Cards this many rows out of view exist too: a re-sort is seen to move them in and out.
    readonly property int rowsBeyondView: 4

    implicitHeight: Math.max(0, count * cardPitch - cardSpacing)
    activeFocusOnTab: count > 0
    Accessible.role: Accessible.List
    Accessible.name: "Uçuşlar"

    onActiveFocusChanged: {
        if (!activeFocus)
            pointerMovedLast = false;
        else if (!pointerMovedLast)
            showRow(currentRow);
    }
    Keys.onUpPressed: moveTo(currentRow - 1)
    Keys.onDownPressed: moveTo(currentRow + 1)
    Keys.onReturnPressed: event => bookCurrent(event.isAutoRepeat)
    Keys.onEnterPressed: event => bookCurrent(event.isAutoRepeat)
    Keys.onSpacePressed: event => bookCurrent(event.isAutoRepeat)

    VisibleFlights {
        id: visibleFlights

        viewModel: area.viewModel
        firstRow: Math.floor((area.page.contentY - area.topInPage) / area.cardPitch) - area.rowsBeyondView
        rowsInView: Math.ceil(area.page.height / area.cardPitch) + 1 + 2 * area.rowsBeyondView
        currentRow: area.currentRow
    }

    Connections {
        target: area.viewModel

        function onFilteredFlightsChanged() {
            area.currentRow = 0;
        }
    }

    Repeater {
        id: cards

        model: visibleFlights.rows

        delegate: FlightCardView {
            id: card

            required property flightRow flightRow

            flight: flightRow.flight
            y: flightRow.row * area.cardPitch
            width: area.width
            height: area.cardHeight
            focus: flightRow.row === area.currentRow
            showsFocus: area.showsFocus && focus
            Component.onCompleted: if (visibleFlights.isRearranging) appearance.start()

            Behavior on y {
                CardMotion {}
            }

            CardMotion {
                id: appearance

                target: card
                property: "opacity"
                from: 0
                to: 1
            }

            TapHandler {
                onPressedChanged: {
                    if (!pressed)
                        return;
                    area.pointerMovedLast = true;
                    area.currentRow = card.flightRow.row;
                    area.forceActiveFocus(Qt.MouseFocusReason);
                }
            }
        }
    }

    component CardMotion: NumberAnimation {
        duration: Motion.resortDuration
        easing.type: Easing.BezierSpline
        easing.bezierCurve: Motion.easeInOut
    }

    /// Moves the keyboard to the card in `row` and scrolls the page to it; stays at the ends.
    function moveTo(row: int) {
        pointerMovedLast = false;
        const bounded = Math.max(0, Math.min(row, count - 1));
        currentRow = bounded;
        showRow(bounded);
    }

    function showRow(row: int) {
        const top = topInPage + row * cardPitch;
        page.showRange(top, top + cardHeight);
    }

    function bookCurrent(isAutoRepeat: bool) {
        if (isAutoRepeat)
            return;
        for (let i = 0; i < cards.count; ++i) {
            const card = cards.itemAt(i) as FlightCardView;
            if (card.focus)
                card.book();
        }
    }
}
