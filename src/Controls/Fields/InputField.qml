pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora.Controls

/// A line of text with a symbol before it and, if `clearable`, a button that empties it. Escape is
/// left to the sheet around it. `textInput` is the item that gets the keyboard when the field does.
FieldSurface {
    id: field

    /// What is typed here, for assistive technology; the prompt only shows an example.
    required property string label
    property string symbol
    property string prompt
    /// What assistive technology says beside the label.
    property string description: prompt
    property bool clearable: false
    property alias text: input.text
    property alias font: input.font
    property alias textInput: input

    /// While it is open.
    property EditMenu menu: null

    /// Return was pressed.
    signal accepted()

    implicitWidth: row.implicitWidth + 20
    onActiveFocusChanged: if (activeFocus) input.forceActiveFocus(Qt.OtherFocusReason)

    function openMenu(x: real, y: real) {
        input.forceActiveFocus(Qt.MouseFocusReason);
        menu = editMenu.createObject(input) as EditMenu;
        menu.popup(x, y);
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
    TapHandler {
        onTapped: input.forceActiveFocus(Qt.MouseFocusReason)
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 10
        anchors.rightMargin: 4
        spacing: VTRTheme.spacing

        Symbol {
            visible: field.symbol.length > 0
            name: field.symbol
            size: 14
            color: VTRTheme.textMuted
        }

        T.TextField {
            id: input

            Layout.fillWidth: true
            Layout.fillHeight: true
            implicitWidth: promptText.implicitWidth
            verticalAlignment: TextInput.AlignVCenter
            maximumLength: 200
            selectByMouse: true
            activeFocusOnTab: true
            color: VTRTheme.textPrimary
            selectionColor: VTRTheme.blue
            selectedTextColor: VTRTheme.textPrimary
            font.family: VTRTheme.fontFamily
            font.pixelSize: VTRTheme.bodySize
            Accessible.name: field.label
            // It is not drawn, but told as the description, whatever else is set as that.
            placeholderText: field.description
            // The menu has the keyboard meanwhile.
            persistentSelection: field.menu !== null
            onAccepted: field.accepted()
            onReleased: event => {
                if (event.button === Qt.RightButton)
                    field.openMenu(event.x, height);
            }
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_Menu
                    || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier);
                if (event.accepted)
                    field.openMenu(cursorRectangle.x, height);
            }

            PlainText {
                id: promptText

                anchors.fill: parent
                visible: input.text.length === 0 && input.preeditText.length === 0
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
                text: field.prompt
                font: input.font
                color: VTRTheme.textMuted
                Accessible.ignored: true
            }
        }

        IconButton {
            visible: field.clearable && input.text.length > 0
            symbol: "xmark.circle.fill"
            symbolSize: 14
            color: VTRTheme.textMuted
            text: "Metni temizle"
            onClicked: {
                input.clear();
                input.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }

    FocusRing {
        control: field
        visible: input.activeFocus || field.menu !== null
    }

    Component {
        id: editMenu

        EditMenu {
            input: field.textInput
            onOpened: currentIndex = 0
            onClosed: {
                field.menu = null;
                destroy();
            }
        }
    }
}
