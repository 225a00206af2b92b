import QtQuick
import Vantora
import Vantora.Controls

/// A row of days that scrolls sideways and is one tab stop: arrows, Home and End move within it.
ListView {
    id: strip

    /// The day that is kept in view; -1 for none.
    required property int selectedIndex
    /// A day with the gap beside it. Where there is room, days grow up to `widestDay` to fill the row.
    required property real narrowestDay
    required property real widestDay
    readonly property real dayWidth: PriceCalendarFormat.dayWidth(width, dayCount, narrowestDay, widestDay)
    /// The number of days in the model; the list's own `count` changes in the middle of its layout.
    required property int dayCount
    /// The item that has the keyboard for the strip, and hands its keys on.
    required property Item keyboard
    /// The focus ring is shown: the keyboard was the last to move.
    readonly property bool showsFocus: keyboard.activeFocus && !pointerMovedLast
    property bool pointerMovedLast: false
    /// The user has scrolled the days to another place.
    property bool isScrolled: false

    signal chosen(index: int)

    /// Covers an end while there are more days past it.
    component EdgeFade: Rectangle {
        id: fade

        property bool isLeft: false
        required property bool isShown
        readonly property color clear: VTRTheme.withOpacity(VTRTheme.cardBg, 0)

        z: 1
        width: 32
        height: parent.height
        opacity: isShown ? 1 : 0
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: fade.isLeft ? VTRTheme.cardBg : fade.clear }
            GradientStop { position: 1; color: fade.isLeft ? fade.clear : VTRTheme.cardBg }
        }
        Accessible.ignored: true

        Behavior on opacity {
            NumberAnimation { duration: Motion.HoverDuration }
        }
    }

    /// The pointer went down on a day: the keyboard moves there.
    function pressed(index: int) {
        keyboard.forceActiveFocus(Qt.MouseFocusReason);
        pointerMovedLast = true;
        currentIndex = index;
    }

    /// Takes the keyboard to a day, and shows that it is there.
    function moveTo(index: int) {
        keyboard.forceActiveFocus(Qt.TabFocusReason);
        pointerMovedLast = false;
        currentIndex = index;
        show(index);
    }

    /// Puts the keyboard on the selected day and brings it into view.
    function showSelection() {
        if (selectedIndex < 0 || selectedIndex >= count)
            return;
        currentIndex = selectedIndex;
        show(selectedIndex);
    }

    /// Shows new days: from the first one on as far as the selected one allows.
    function open() {
        isScrolled = false;
        showSelection();
        settling.restart();
    }

    /// Days that the user has not scrolled stand as near to their beginning as the current one allows.
    function settle() {
        if (isScrolled && interactive)
            return;
        forceLayout();
        positionViewAtBeginning();
        show(currentIndex);
    }

    /// Brings a day into view together with its neighbours, which are what the covered ends cover then.
    function show(index: int) {
        for (const shown of [index - 1, index + 1, index]) {
            if (shown >= 0 && shown < count)
                positionViewAtIndex(shown, ListView.Contain);
        }
    }

    // Qt makes buffered items later, and warns when the days have become fewer meanwhile.
    cacheBuffer: 0
    orientation: ListView.Horizontal
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentWidth > width
    clip: interactive
    keyNavigationEnabled: true
    // Otherwise a day that is cut off would slip away from under the pointer that goes down on it.
    highlightFollowsCurrentItem: false

    onSelectedIndexChanged: showSelection()
    onWidthChanged: settling.restart()
    onDayWidthChanged: settling.restart()
    onMovementStarted: isScrolled = true
    onCurrentIndexChanged: if (showsFocus) show(currentIndex)
    Keys.onSpacePressed: chosen(currentIndex)
    Keys.onPressed: event => {
        const jumps = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (jumps || event.key === Qt.Key_Left || event.key === Qt.Key_Right)
            pointerMovedLast = false;
        if (jumps)
            currentIndex = event.key === Qt.Key_Home ? 0 : count - 1;
        event.accepted = jumps;
    }

    // Later: when everything that goes with a change has its width.
    Timer {
        id: settling

        interval: 0
        onTriggered: strip.settle()
    }

    // Touchpads and tilting wheels scroll sideways by themselves; a plain wheel does with Shift.
    WheelHandler {
        enabled: strip.interactive
        acceptedDevices: PointerDevice.Mouse
        acceptedModifiers: Qt.ShiftModifier
        target: null
        onWheel: event => {
            const furthest = strip.originX + strip.contentWidth - strip.width;
            const wanted = strip.contentX - (event.angleDelta.y || event.angleDelta.x);
            strip.contentX = Math.max(strip.originX, Math.min(wanted, furthest));
            strip.isScrolled = true;
        }
    }

    // Another window may take the keyboard and give it back.
    Connections {
        target: strip.keyboard

        function onActiveFocusChanged() {
            if (!strip.keyboard.activeFocus && strip.Window.active)
                strip.pointerMovedLast = false;
        }
    }

    HoverHandler {
        enabled: strip.interactive
        cursorShape: strip.dragging ? Qt.ClosedHandCursor : Qt.OpenHandCursor
    }

    EdgeFade {
        parent: strip
        isLeft: true
        isShown: !strip.atXBeginning
    }

    EdgeFade {
        parent: strip
        x: strip.width - width
        isShown: !strip.atXEnd
    }
}
