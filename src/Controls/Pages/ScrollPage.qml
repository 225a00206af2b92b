import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A page that scrolls up and down by wheel, touchpad, scroll bar and keyboard, stops at its ends,
/// and follows the keyboard focus.
Flickable {
    id: page

    /// The last item that the keyboard brought into view. It may come back to it by itself, from
    /// another window or a menu, and the page has been scrolled meanwhile.
    property Item shownItem: null

    /// Scrolls as little as needed to show the content from `top` to `bottom`.
    function showRange(top: real, bottom: real) {
        const margin = 24;
        if (top - margin < contentY)
            scrollTo(top - margin);
        else if (bottom + margin > contentY + height)
            scrollTo(bottom + margin - height);
    }

    function scrollTo(position: real) {
        contentY = Math.max(0, Math.min(position, contentHeight - height));
    }

    function scrollBy(distance: real) {
        scrollTo(contentY + distance);
    }

    /// The content below `top` is about to move down by `distance`: what is in view stays in view.
    function follow(top: real, distance: real) {
        if (top < contentY)
            contentY = Math.max(top, contentY + distance);
    }

    /// Shows the item that the keyboard has come to, if it lies in this page and fits into it.
    function showItem(item: Item) {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent) {
            if (ancestor !== contentItem)
                continue;
            if (item === shownItem)
                return;
            shownItem = item;
            const top = item.mapToItem(contentItem, 0, 0).y;
            if (item.height < height)
                showRange(top, top + item.height);
            return;
        }
    }

    contentWidth: width
    interactive: false
    boundsBehavior: Flickable.StopAtBounds
    onHeightChanged: scrollBy(0)
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
        else
            return;
        event.accepted = true;
    }

    Connections {
        target: page.Window.window

        function onActiveFocusItemChanged() {
            page.showItem(page.Window.window.activeFocusItem);
        }
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null
        // A touchpad tells pixels, a wheel eighths of a degree: a notch of 15 degrees is 80 pixels.
        onWheel: event => page.scrollBy(-(event.pixelDelta.y || event.angleDelta.y * 80 / 120))
    }

    T.ScrollBar.vertical: PageScrollBar {}
}
