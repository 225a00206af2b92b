import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A page that scrolls by wheel, touch, scroll bar and keyboard, stops at its ends, and follows the
/// keyboard focus. A mouse does not drag it. It scrolls sideways where it is narrower than
/// `leastWidth`.
Flickable {
    id: page

    /// The last item that the keyboard brought into view. It may come back to it by itself, from
    /// another window or a menu, and the page has been scrolled meanwhile.
    property Item shownItem: null
    property real leastWidth: 0

    /// Scrolls as little as needed to show the content from `top` to `bottom`.
    function showRange(top: real, bottom: real) {
        const margin = 24;
        if (top - margin < contentY)
            scrollTo(top - margin);
        else if (bottom + margin > contentY + height)
            scrollTo(bottom + margin - height);
    }

    function scrollTo(position: real) {
        // Whole pixels, so that everything is drawn as it was before.
        contentY = Math.max(0, Math.floor(Math.min(position, contentHeight - height)));
    }

    function scrollBy(distance: real) {
        scrollTo(contentY + distance);
    }

    /// The content below `top` is about to move down by `distance`: what is in view stays in view, and
    /// what has the keyboard, as has what was clicked, stays where it is.
    function follow(top: real, distance: real) {
        if (top < contentY)
            contentY = Math.max(top, contentY + distance);
        else if (keyboardPlace() > top)
            contentY = Math.max(0, contentY + distance);
    }

    /// Where the item with the keyboard begins, if it is in view; -1 otherwise.
    function keyboardPlace(): real {
        const item = Window.window?.activeFocusItem ?? null;
        if (!holds(item))
            return -1;
        const place = item.mapToItem(contentItem, 0, 0).y;
        return place + item.height > contentY && place < contentY + height ? place : -1;
    }

    function holds(item: Item): bool {
        let ancestor = item;
        while (ancestor && ancestor !== contentItem)
            ancestor = ancestor.parent;
        return ancestor !== null;
    }

    function scrollSideways(distance: real) {
        contentX = Math.max(0, Math.floor(Math.min(contentX + distance, contentWidth - width)));
    }

    /// Shows the item that the keyboard has come to, if it lies in this page and fits into it.
    function showItem(item: Item) {
        if (item === shownItem || !holds(item))
            return;
        shownItem = item;
        const place = item.mapToItem(contentItem, 0, 0);
        if (item.height < height)
            showRange(place.y, place.y + item.height);
        if (place.x < contentX || place.x + item.width > contentX + width)
            scrollSideways(place.x + (item.width - width) / 2 - contentX);
    }

    // Not only for the look: of an item that moves wholly behind something opaque, such as the menu
    // bar, the software renderer leaves the old picture on the screen.
    clip: true
    contentWidth: Math.max(width, leastWidth)
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    onHeightChanged: scrollBy(0)
    onWidthChanged: scrollSideways(0)
    onContentHeightChanged: scrollBy(0)

    Keys.onPressed: event => {
        if (event.key === Qt.Key_PageDown)
            scrollBy(0.9 * height);
        else if (event.key === Qt.Key_PageUp)
            scrollBy(-0.9 * height);
        else if (event.key === Qt.Key_Home)
            scrollTo(0);
        else if (event.key === Qt.Key_End)
            scrollTo(contentHeight);
        else if (event.key === Qt.Key_Down)
            scrollBy(60);
        else if (event.key === Qt.Key_Up)
            scrollBy(-60);
        else if (event.key === Qt.Key_Right && contentWidth > width)
            scrollSideways(60);
        else if (event.key === Qt.Key_Left && contentWidth > width)
            scrollSideways(-60);
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: page.Window.window

        function onActiveFocusItemChanged() {
            following.restart();
        }
    }

    // Later: the keyboard may move because the page scrolls, to a card that is made for its new place.
    Timer {
        id: following

        interval: 0
        onTriggered: page.showItem(page.Window.window?.activeFocusItem ?? null)
    }

    component Wheel: WheelHandler {
        // On X11 pixels are whatever the driver counts in.
        readonly property bool hasPixels: Qt.platform.pluginName !== "xcb"
        /// What was turned short of a pixel.
        property real rest: 0

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null

        /// A touchpad reports pixels, a wheel eighths of a degree: a notch of 15 degrees is 80 pixels.
        function distance(pixels: real, angle: real): int {
            rest -= hasPixels && pixels || angle * 80 / 120;
            const whole = Math.round(rest);
            rest -= whole;
            return whole;
        }
    }

    Wheel {
        onWheel: event => page.scrollBy(distance(event.pixelDelta.y, event.angleDelta.y))
    }

    Wheel {
        enabled: page.contentWidth > page.width
        orientation: Qt.Horizontal
        onWheel: event => page.scrollSideways(distance(event.pixelDelta.x, event.angleDelta.x))
    }

    // Flickable itself would let a mouse drag the page, too.
    DragHandler {
        id: finger

        /// Where the page was when the finger went down.
        property point start
        property vector2d speed
        property real movedAt

        acceptedDevices: PointerDevice.TouchScreen
        target: null
        xAxis.enabled: page.contentWidth > page.width
        onActiveChanged: {
            if (active)
                start = Qt.point(page.contentX, page.contentY);
            // A finger that rested before it left does not throw the page.
            else if (Date.now() - movedAt < 100)
                page.flick(xAxis.enabled ? speed.x : 0, speed.y);
        }
        onActiveTranslationChanged: {
            if (!active)
                return;
            page.scrollSideways(start.x - activeTranslation.x - page.contentX);
            page.scrollTo(start.y - activeTranslation.y);
            speed = centroid.velocity;
            movedAt = Date.now();
        }
    }

    PointHandler {
        acceptedDevices: PointerDevice.TouchScreen
        onActiveChanged: if (active) page.cancelFlick()
    }

    T.ScrollBar.vertical: ScrollBar {}
    T.ScrollBar.horizontal: ScrollBar {}
}
