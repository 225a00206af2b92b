import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A modal sheet over the dimmed window. Its child is the content, made anew for every opening and
/// destroyed after the closing motion; the item in it that has `focus: true` gets the keyboard
/// first (a content that is a FocusScope needs it, too), Tab stays within the sheet, and closing
/// gives the keyboard back to where it was. `title` is the accessible name; the content shows it in
/// a SheetHeader.
///
/// Escape and the header's button close it. A click beside it does not: it would throw away what
/// was typed for a slip of the pointer.
T.Dialog {
    id: sheet

    required property int sheetWidth
    required property int sheetHeight
    property color fill: VTRTheme.background
    default property Component content

    /// What `content` makes, while the sheet is open.
    property Item body: null
    /// How far below its place the sheet is, while it comes and goes.
    property real rise: 0

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: (parent ? Math.round((parent.height - height) / 2) : 0) + rise
    width: sheetWidth
    height: parent ? Math.min(sheetHeight, parent.height - 2 * VTRTheme.padding) : sheetHeight
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    onAboutToShow: focusReturn.remember(parent.Window.window.activeFocusItem)
    onVisibleChanged: visible ? makeBody() : body?.destroy()
    onClosed: focusReturn.restore()

    // A Loader would refuse a component that is bound to its context.
    function makeBody() {
        const room = { "width": availableWidth, "height": availableHeight };
        body = content.createObject(contentItem, room) as Item;
        body.anchors.fill = contentItem;
    }

    background: RoundedSurface {
        radius: VTRTheme.cardRadius
        color: sheet.fill
        borderColor: VTRTheme.cardBorder
        borderWidth: 0.5
        shadowColor: Qt.rgba(0, 0, 0, 0.5)
        shadowRadius: 30
        shadowOffset: 12
    }
    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.55)

        Behavior on opacity {
            NumberAnimation { duration: Motion.sheetDuration }
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.sheetDuration }
        NumberAnimation {
            property: "rise"
            from: 14
            to: 0
            duration: Motion.sheetDuration
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.sheetDuration }
        NumberAnimation {
            property: "rise"
            to: 14
            duration: Motion.sheetDuration
            easing.type: Easing.InCubic
        }
    }

    FocusReturn {
        id: focusReturn
    }
}
