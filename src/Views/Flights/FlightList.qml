pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The flight cards inside the page that scrolls them. Only the cards in the page's viewport
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

    implicitHeight: Math.max(0, count * cardPitch - cardSpacing)
    // Cards that are not seen do not act.
    enabled: visible
    activeFocusOnTab: count > 0

    // Another window may take the keyboard and give it back.
    onActiveFocusChanged: if (!activeFocus && Window.active) pointerMovedLast = false
    // At either end the page takes the key.
    Keys.onPressed: event => event.accepted = moveTo(rowAfterKey(event.key))

    VisibleFlights {
        id: cards

        flights: area.flights
        firstRow: Math.floor((area.page.contentY - area.topInPage) / area.cardPitch)
        rowCount: Math.ceil(area.page.height / area.cardPitch) + 1
    }

    AccessibleList {
        anchors.fill: parent
        Accessible.name: "Uçuşlar"
        count: area.count
        // Any card knows the words for each flight, and where there are flights there is one.
        textOf: row => (repeater.itemAt(0) as FlightCardView)?.inWords(area.flights.at(row)) ?? ""
        itemOf: row => {
            for (let i = 0; i < repeater.count; ++i) {
                const card = repeater.itemAt(i); // null while it is being made
                if (card?.y === row * area.cardPitch)
                    return card;
            }
            return null;
        }
        currentRow: cards.currentRow
        isActive: area.activeFocus
        onRowPressed: row => ExternalLinks.openBooking(area.flights.at(row))
        onRowFocused: row => {
            area.forceActiveFocus(Qt.TabFocusReason);
            area.moveTo(row);
        }

        Repeater {
            id: repeater

            model: cards.rows

            delegate: FlightCardView {
                id: card

                required property flightRow flightRow
                readonly property bool isCurrent: !flightRow.isLeaving && flightRow.row === cards.currentRow
                property bool hasAppeared: !cards.isRearranging

                flight: flightRow.flight
                y: flightRow.row * area.cardPitch
                width: area.width
                height: area.cardHeight
                opacity: hasAppeared && !flightRow.isLeaving ? 1 : 0
                enabled: !flightRow.isLeaving
                focus: isCurrent
                showsFocus: area.showsFocus && isCurrent
                Component.onCompleted: hasAppeared = true
                Keys.onSpacePressed: book()

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
    }

    function rowAfterKey(key: int): int {
        const rowsInView = Math.max(1, Math.floor(page.height / cardPitch));
        switch (key) {
        case Qt.Key_Up:
            return cards.currentRow - 1;
        case Qt.Key_Down:
            return cards.currentRow + 1;
        case Qt.Key_PageUp:
            return cards.currentRow - rowsInView;
        case Qt.Key_PageDown:
            return cards.currentRow + rowsInView;
        case Qt.Key_Home:
            return 0;
        case Qt.Key_End:
            return count - 1;
        }
        return cards.currentRow;
    }

    /// Moves the keyboard to the card in `row`, or the nearest there is, and scrolls the page to it.
    /// False when it is there already.
    function moveTo(row: int): bool {
        const nearest = Math.max(0, Math.min(row, count - 1));
        if (nearest === cards.currentRow)
            return false;
        pointerMovedLast = false;
        cards.currentRow = nearest;
        const top = topInPage + nearest * cardPitch;
        page.showRange(top, top + cardHeight);
        return true;
    }
}
