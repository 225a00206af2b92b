pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The flight cards inside the page that scrolls them. Only the cards near the page's viewport
/// exist, so that thousands of flights open as fast as ten. A card's place follows from its row.
FocusScope {
    id: area

    required property FlightOptionList flights
    required property ScrollPage page
    /// Where this item begins in the page's content.
    required property real topInPage

    readonly property int cardHeight: 104
    readonly property int cardSpacing: 12
    readonly property int cardPitch: cardHeight + cardSpacing
    readonly property int count: flights.count
    readonly property bool showsFocus: activeFocus && !pointerMovedLast
    property bool pointerMovedLast: false
    /// So many rows out of view have cards too: a re-sort is seen to move them in and out.
    readonly property int rowsBeyondView: 4

    implicitHeight: Math.max(0, count * cardPitch - cardSpacing)
    // Cards that are not seen do not act.
    enabled: visible
    activeFocusOnTab: count > 0
    Accessible.role: Accessible.List
    Accessible.name: "Uçuşlar"

    // Another window may take the keyboard and give it back.
    onActiveFocusChanged: if (!activeFocus && Window.active) pointerMovedLast = false
    Keys.onUpPressed: moveTo(cards.currentRow - 1)
    Keys.onDownPressed: moveTo(cards.currentRow + 1)

    VisibleFlights {
        id: cards

        flights: area.flights
        firstRow: Math.floor((area.page.contentY - area.topInPage) / area.cardPitch) - area.rowsBeyondView
        rowCount: Math.ceil(area.page.height / area.cardPitch) + 1 + 2 * area.rowsBeyondView
    }

    Repeater {
        model: cards.rows

        delegate: FlightCardView {
            id: card

            required property flightRow flightRow
            readonly property bool isCurrent: !flightRow.isLeaving && flightRow.row === cards.currentRow
            property bool hasAppeared: !cards.isRearranging()

            flight: flightRow.flight
            y: flightRow.row * area.cardPitch
            width: area.width
            height: area.cardHeight
            opacity: hasAppeared && !flightRow.isLeaving ? 1 : 0
            enabled: !flightRow.isLeaving
            focus: isCurrent
            showsFocus: area.showsFocus && isCurrent
            Accessible.ignored: flightRow.isLeaving
            Component.onCompleted: hasAppeared = true
            Keys.onReturnPressed: event => bookUnless(event.isAutoRepeat)
            Keys.onEnterPressed: event => bookUnless(event.isAutoRepeat)
            Keys.onSpacePressed: event => bookUnless(event.isAutoRepeat)

            function bookUnless(isAutoRepeat: bool) {
                if (!isAutoRepeat)
                    book();
            }

            Behavior on y {
                EaseInOut { duration: cards.motionDuration }
            }
            Behavior on opacity {
                EaseInOut { duration: cards.motionDuration }
            }

            TapHandler {
                onPressedChanged: {
                    if (!pressed)
                        return;
                    area.pointerMovedLast = true;
                    cards.currentRow = card.flightRow.row;
                    area.forceActiveFocus(Qt.MouseFocusReason);
                }
            }
        }
    }

    /// Moves the keyboard to the card in `row` and scrolls the page to it; stays at the ends.
    function moveTo(row: int) {
        pointerMovedLast = false;
        cards.currentRow = Math.max(0, Math.min(row, count - 1));
        const top = topInPage + cards.currentRow * cardPitch;
        page.showRange(top, top + cardHeight);
    }
}
