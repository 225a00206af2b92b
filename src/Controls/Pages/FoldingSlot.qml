import QtQuick
import Vantora.Controls

/// A place in a page that opens and closes with a motion. While it does so above what is in view,
/// the page follows, so that this stays in place. Its child is the content, made when
/// the slot first opens.
Item {
    id: slot

    required property ScrollPage page
    /// Where the slot begins in the page's content, whether it has a place there yet or not.
    required property real topInPage
    required property bool isOpen
    /// Room above the content, which comes and goes with it.
    property real gap: 20
    default property Component content

    /// 0 closed, 1 open.
    property real openness: isOpen ? 1 : 0
    /// Whole pixels: a Flickable rounds its place whenever its content changes.
    readonly property real wantedHeight: Math.round(openness * (gap + holder.childrenRect.height))

    onIsOpenChanged: {
        // A Loader would refuse a component that is bound to its context.
        if (isOpen && holder.children.length === 0)
            content.createObject(holder);
    }
    visible: isOpen || openness > 0
    enabled: isOpen

    // The page goes first: when it became too short for where it stands, it would move itself.
    onWantedHeightChanged: {
        page.follow(topInPage, wantedHeight - height);
        height = wantedHeight;
    }

    Behavior on openness {
        EaseInOut { duration: Motion.ResultsDuration }
    }

    Item {
        id: holder

        y: slot.gap - (1 - slot.openness) * 24
        width: parent.width
        opacity: slot.openness
    }
}
