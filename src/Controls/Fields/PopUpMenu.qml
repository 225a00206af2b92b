pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A choice of one among several that drop down when they are asked for. The owner binds
/// `currentIndex` and stores what `activated` brings. It is never narrower than its widest entry.
T.ComboBox {
    id: control

    /// What is chosen here, for assistive technology.
    required property string label
    /// The entries, in order.
    required property list<string> titles

    /// The menu is open, for assistive technology.
    readonly property bool isExpanded: down
    readonly property real entryWidth: TextWidth.widest(titles, VTRTheme.bodyFont) + 1

    model: titles
    implicitWidth: entryWidth + leftPadding + rightPadding
    implicitHeight: implicitBackgroundHeight
    leftPadding: 12
    rightPadding: 28
    font: VTRTheme.bodyFont
    hoverEnabled: true
    Accessible.name: label
    Accessible.description: displayText
    Accessible.onPressAction: popup.open()
    onActivated: telling.restart()
    Keys.onReturnPressed: openOrTake()
    Keys.onEnterPressed: openOrTake()
    Keys.onSpacePressed: openOrTake()
    Keys.onEscapePressed: event => {
        event.accepted = popup.visible;
        popup.close();
    }

    /// The menu was open before the choice that is to be told.
    property bool wasOpen: false

    /// An open menu told its entries, and the box has the keyboard again; a closed one tells what the
    /// arrows have chosen.
    function tellChoice() {
        if (!wasOpen)
            Speech.say(displayText + ", " + (currentIndex + 1) + " / " + count);
        else if (activeFocus)
            Speech.focus(control);
        wasOpen = false;
    }

    // When everything that goes with the choice has been done.
    Timer {
        id: telling

        interval: 0
        onTriggered: control.tellChoice()
    }

    function openOrTake() {
        if (!popup.visible) {
            popup.open();
            return;
        }
        const index = highlightedIndex;
        popup.close();
        if (index >= 0)
            activated(index);
    }

    background: FieldSurface {
        PressTint {
            isDown: control.down
            isHovered: control.hovered
            radius: VTRTheme.controlRadius
        }
    }
    contentItem: PlainText {
        text: control.displayText
        font: control.font
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: Symbol {
        x: control.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.down"
        size: 14
        color: VTRTheme.textMuted
    }

    FocusRing {
        control: control
        visible: control.visualFocus
    }

    delegate: T.ItemDelegate {
        id: entry

        required property int index
        required property string modelData

        width: ListView.view.width
        implicitHeight: 32
        leftPadding: 32
        rightPadding: 12
        text: modelData
        highlighted: control.highlightedIndex === index
        hoverEnabled: true

        background: MenuEntryGround {
            entry: entry
            isHighlighted: entry.highlighted

            Symbol {
                x: 8
                anchors.verticalCenter: parent.verticalCenter
                visible: entry.index === control.currentIndex
                name: "checkmark"
                size: 13
            }
        }
        contentItem: PlainText {
            text: entry.text
            font: control.font
            verticalAlignment: Text.AlignVCenter
        }
    }

    popup: T.Popup {
        y: control.height + 4
        width: Math.max(control.width, control.entryWidth + 44 + leftPadding + rightPadding)
        implicitHeight: contentHeight + topPadding + bottomPadding
        height: Math.min(implicitHeight, control.Window.height - topMargin - bottomMargin)
        margins: VTRTheme.spacing
        padding: 5
        // What lies behind keeps its place and does not answer the pointer.
        modal: true
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

        T.Overlay.modal: Item {}

        background: PopUpSurface {}
        onOpened: control.wasOpen = true
        onClosed: telling.restart()

        contentItem: PopUpEntries {
            label: control.label
            menu: control
        }
    }
}
