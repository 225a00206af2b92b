pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A choice of one among several that drop down when they are asked for. The owner binds
/// `currentIndex` and stores what `activated` brings. It is never narrower than its widest entry.
T.ComboBox {
    id: control

    /// What is chosen here; the accessible name begins with it.
    required property string label
    /// The entries, in order.
    required property list<string> titles

    readonly property real entryWidth: TextWidth.widest(titles, font) + 1

    model: titles
    implicitWidth: entryWidth + leftPadding + rightPadding
    implicitHeight: implicitBackgroundHeight
    leftPadding: 12
    rightPadding: 28
    font.family: VTRTheme.fontFamily
    font.pixelSize: VTRTheme.bodySize
    hoverEnabled: true
    Accessible.name: label + ": " + displayText
    Accessible.onPressAction: popup.open()
    Keys.onReturnPressed: openOrTake()
    Keys.onEnterPressed: openOrTake()
    Keys.onSpacePressed: openOrTake()
    Keys.onEscapePressed: event => {
        event.accepted = popup.visible;
        popup.close();
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
        Accessible.ignored: true
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
        Accessible.role: Accessible.ListItem
        Accessible.name: text
        Accessible.focusable: false
        Accessible.selectable: true
        Accessible.selected: index === control.currentIndex
        Accessible.onPressAction: clicked()

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
            Accessible.ignored: true
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
        contentItem: ListView {
            implicitHeight: contentHeight
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: control.delegateModel
            currentIndex: control.highlightedIndex
            highlightMoveDuration: 0
            Accessible.role: Accessible.List
            Accessible.name: control.label
        }
    }
}
