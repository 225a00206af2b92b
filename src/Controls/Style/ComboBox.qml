pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A choice of one among several texts that drop down when they are asked for. It is never narrower
/// than its widest one. `Accessible.name` says what is chosen here.
T.ComboBox {
    id: box

    /// The menu is open, for assistive technology.
    readonly property bool isExpanded: down
    readonly property real widestText: ShownText.widest(model, font) + 1

    implicitWidth: widestText + leftPadding + rightPadding
    implicitHeight: implicitBackgroundHeight
    leftPadding: 12
    rightPadding: 28
    font: VTRTheme.bodyFont
    hoverEnabled: true
    Accessible.role: Accessible.ComboBox
    Accessible.description: displayText
    Accessible.onPressAction: popup.open()
    onActivated: announcing.restart()
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Down && event.modifiers & Qt.AltModifier;
        if (event.accepted)
            popup.open();
    }
    // T.ComboBox closes when Escape is released, which the window no longer sees.
    Keys.onEscapePressed: event => {
        event.accepted = popup.visible;
        popup.close();
    }

    /// The menu was open when the choice was made.
    property bool wasOpen: false

    /// After an open menu, whose entries were read out, the box has the focus again. A choice that the
    /// arrows make in a closed one is read out.
    function announceChoice() {
        if (!wasOpen)
            ScreenReader.announce(displayText + ", " + (currentIndex + 1) + " / " + count);
        else if (activeFocus)
            ScreenReader.focus(box);
        wasOpen = false;
    }

    // When everything that goes with the choice has been done.
    Timer {
        id: announcing

        interval: 0
        onTriggered: box.announceChoice()
    }

    background: FieldSurface {
        PressTint {
            isDown: box.down
            isHovered: box.hovered
        }
    }
    contentItem: PlainText {
        text: box.displayText
        font: box.font
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    indicator: Symbol {
        x: box.width - width - 8
        anchors.verticalCenter: parent.verticalCenter
        name: "chevron.down"
        size: 14
        color: VTRTheme.textMuted
    }

    FocusRing {
        control: box
        visible: box.visualFocus
    }

    delegate: ItemDelegate {
        required property int index
        required property string modelData

        width: ListView.view.width
        text: modelData
        icon.name: index === box.currentIndex ? "checkmark" : ""
        highlighted: index === box.highlightedIndex
    }

    popup: Popup {
        y: box.height + 4
        width: Math.max(box.width, box.widestText + 44 + leftPadding + rightPadding)
        height: Math.min(implicitHeight, box.Window.height - topMargin - bottomMargin)
        onOpened: box.wasOpen = true
        onClosed: announcing.restart()

        contentItem: Rows {
            control: box
        }
    }

    component Rows: AccessibleList {
        id: rows

        required property T.ComboBox control

        implicitHeight: list.contentHeight
        Accessible.name: control.Accessible.name
        count: control.count
        textOf: row => control.textAt(row)
        itemOf: row => list.itemAtIndex(row)
        currentRow: control.highlightedIndex
        selectedRow: control.currentIndex
        isActive: control.down
        onRowFocused: row => {
            for (let step = control.highlightedIndex; step < row; ++step)
                control.incrementCurrentIndex();
            for (let step = control.highlightedIndex; step > row; --step)
                control.decrementCurrentIndex();
        }
        onRowPressed: row => (list.itemAtIndex(row) as T.ItemDelegate).clicked()

        ListView {
            id: list

            anchors.fill: parent
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: rows.control.delegateModel
            currentIndex: rows.control.highlightedIndex
            highlightMoveDuration: 0
        }
    }
}
