pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// The flight cards inside the page that scrolls them. Only the cards in the page's viewport exist,
/// so that thousands of flights open as fast as ten: the list itself is as high as the viewport and
/// stays within it while the page scrolls.
Item {
    id: area

    required property FlightSearchViewModel viewModel
    required property ScrollPage page
    /// Where this item begins in the page's content.
    required property real topInPage

    readonly property int cardHeight: 104
    readonly property int cardSpacing: 12
    readonly property int cardPitch: cardHeight + cardSpacing
    readonly property real visibleTop: Math.max(0, Math.min(page.contentY - topInPage, height - list.height))

    implicitHeight: Math.max(0, viewModel.filteredFlights.count * cardPitch - cardSpacing)

    ListView {
        id: list

        readonly property bool showsFocus: activeFocus && !pointerMovedLast
        property bool pointerMovedLast: false
        readonly property real position: originY + area.visibleTop

        onPositionChanged: contentY = position

        y: area.visibleTop
        width: parent.width
        height: Math.min(area.height, area.page.height + area.cardHeight)
        interactive: false
        keyNavigationEnabled: false
        spacing: area.cardSpacing
        cacheBuffer: 2 * area.cardHeight
        activeFocusOnTab: count > 0
        highlightFollowsCurrentItem: false
        model: area.viewModel.filteredFlights
        Accessible.role: Accessible.List
        Accessible.name: "Uçuşlar"
        onActiveFocusChanged: if (!activeFocus) pointerMovedLast = false

        delegate: FlightCardView {
            id: card

            required property int index

            width: list.width
            height: area.cardHeight
            focus: ListView.isCurrentItem
            showsFocus: list.showsFocus && ListView.isCurrentItem

            TapHandler {
                onPressedChanged: {
                    if (!pressed)
                        return;
                    list.pointerMovedLast = true;
                    list.currentIndex = card.index;
                    list.forceActiveFocus(Qt.MouseFocusReason);
                }
            }
        }

        Keys.onUpPressed: area.moveTo(currentIndex - 1)
        Keys.onDownPressed: area.moveTo(currentIndex + 1)
        Keys.onReturnPressed: event => area.bookCurrent(event.isAutoRepeat)
        Keys.onEnterPressed: event => area.bookCurrent(event.isAutoRepeat)
        Keys.onSpacePressed: event => area.bookCurrent(event.isAutoRepeat)

        move: Transition {
            CardMotion { property: "y" }
        }
        moveDisplaced: Transition {
            CardMotion { property: "y" }
        }
        removeDisplaced: Transition {
            CardMotion { property: "y" }
        }
        addDisplaced: Transition {
            CardMotion { property: "y" }
        }
        add: Transition {
            CardMotion {
                property: "opacity"
                from: 0
                to: 1
            }
        }
        remove: Transition {
            CardMotion {
                property: "opacity"
                to: 0
            }
        }
    }

    Connections {
        target: area.viewModel.filteredFlights

        // A long list in a new order is a new list: it is read from its top.
        function onModelReset() {
            area.page.scrollTo(Math.min(area.page.contentY, Math.max(0, area.topInPage - area.cardPitch)));
        }
    }

    component CardMotion: NumberAnimation {
        duration: Motion.resortDuration
        easing.type: Easing.BezierSpline
        easing.bezierCurve: Motion.easeInOut
    }

    /// Moves the keyboard to the card at `index` and scrolls the page to it; stays at the ends.
    function moveTo(index: int) {
        list.pointerMovedLast = false;
        const bounded = Math.max(0, Math.min(index, list.count - 1));
        const top = topInPage + bounded * cardPitch;
        page.showRange(top, top + cardHeight);
        list.currentIndex = bounded;
    }

    function bookCurrent(isAutoRepeat: bool) {
        const card = list.currentItem as FlightCardView;
        if (card && !isAutoRepeat)
            card.book();
    }
}
