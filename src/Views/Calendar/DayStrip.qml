import QtQuick
import Vantora
import Vantora.Controls

/// A row of days that scrolls sideways and is one tab stop: arrows, Home and End move within it.
/// Its delegate is a CalendarDay.
ListView {
    id: strip

    /// The number of days in the model; the list's own `count` changes in the middle of its layout.
    required property int dayCount
    /// The day that is kept in view; -1 for none.
    required property int selectedIndex
    /// The least width of a day. Where there is room, days grow up to `widestDay` to fill the row.
    required property real narrowestDay
    property real widestDay: 2 * narrowestDay
    readonly property real dayWidth: PriceCalendarFormat.dayWidth(width - leftMargin - rightMargin, dayCount, spacing,
                                                                  narrowestDay, widestDay)
    /// The item that has the keyboard for the strip, and hands its keys on; null when the strip is for
    /// the pointer alone.
    property Item keyboard: null
    readonly property bool hasKeyboard: keyboard !== null && keyboard.activeFocus
    /// The focus ring is shown: the keyboard was the last to move.
    readonly property bool showsFocus: hasKeyboard && !pointerMovedLast
    property bool pointerMovedLast: false
    /// How much of either end is covered while there are more days past it.
    readonly property real edgeWidth: 32
    property int laidOutCount: 0
    property bool couldScroll: false

    /// The pointer went down on a day: the keyboard moves there.
    function pressed(index: int) {
        keyboard?.forceActiveFocus(Qt.MouseFocusReason);
        pointerMovedLast = true;
        currentIndex = index;
    }

    /// Assistive technology takes the keyboard to a day.
    function moveTo(index: int) {
        keyboard.forceActiveFocus(Qt.TabFocusReason);
        pointerMovedLast = false;
        currentIndex = index;
        show(index);
    }

    function pressCurrent() {
        (currentItem as CalendarDay).press();
    }

    /// Puts the keyboard on the selected day and brings it into view.
    function showSelection() {
        if (selectedIndex < 0 || selectedIndex >= count)
            return;
        currentIndex = selectedIndex;
        show(selectedIndex);
    }

    /// New days are shown from the first one on. The same days in another width stay where they were;
    /// if they all had room and no longer have, the current one is kept in view.
    function layOut() {
        if (laidOutCount === count) {
            if (!interactive || !couldScroll)
                show(currentIndex);
            couldScroll = interactive;
            return;
        }
        couldScroll = interactive;
        laidOutCount = count;
        contentX = originX - leftMargin;
        showSelection();
    }

    /// Brings a day to the middle, unless it is clear of the edges already.
    function show(index: int) {
        if (!interactive)
            contentX = originX - leftMargin;
        if (!interactive || index < 0)
            return;
        const left = originX + index * (dayWidth + spacing) - contentX;
        if (!PriceCalendarFormat.isClear(left, dayWidth, width, edgeWidth))
            positionViewAtIndex(index, ListView.Center);
    }

    orientation: ListView.Horizontal
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth + leftMargin + rightMargin > width
    clip: interactive
    keyNavigationEnabled: true
    highlightMoveDuration: 0

    onSelectedIndexChanged: showSelection()
    onContentWidthChanged: layOut()
    onWidthChanged: layOut()
    onCurrentIndexChanged: if (showsFocus) show(currentIndex)
    // Another window may take the keyboard and give it back.
    onHasKeyboardChanged: if (!hasKeyboard && Window.active) pointerMovedLast = false
    Keys.onReturnPressed: pressCurrent()
    Keys.onEnterPressed: pressCurrent()
    Keys.onSpacePressed: pressCurrent()
    Keys.onPressed: event => {
        const jumps = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (jumps || event.key === Qt.Key_Left || event.key === Qt.Key_Right)
            pointerMovedLast = false;
        if (jumps)
            currentIndex = event.key === Qt.Key_Home ? 0 : count - 1;
        event.accepted = jumps;
    }

    // Touchpads and tilting wheels scroll sideways by themselves; a plain wheel does with Shift.
    WheelHandler {
        enabled: strip.interactive
        acceptedDevices: PointerDevice.Mouse
        acceptedModifiers: Qt.ShiftModifier
        target: null
        onWheel: event => {
            const furthest = strip.originX + strip.contentWidth + strip.rightMargin - strip.width;
            const wanted = strip.contentX - (event.angleDelta.y || event.angleDelta.x);
            strip.contentX = Math.max(strip.originX - strip.leftMargin, Math.min(wanted, furthest));
        }
    }

    HoverHandler {
        enabled: strip.interactive
        cursorShape: strip.dragging ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }

    EdgeFade {
        parent: strip
        width: strip.edgeWidth
        isLeft: true
        isShown: !strip.atXBeginning
    }

    EdgeFade {
        parent: strip
        x: strip.width - width
        width: strip.edgeWidth
        isShown: !strip.atXEnd
    }
}
