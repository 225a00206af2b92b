pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A line of text with a symbol before it and, if `clearable`, a button that empties it. What is
/// typed here says `Accessible.name`; the placeholder text only shows an example. Escape is left to
/// the sheet around it.
T.TextField {
    id: field

    property string symbol
    property bool clearable: false
    property color fill: VTRTheme.cardBg
    /// While it is open.
    property Menu menu: null

    function openMenu(x: real, y: real) {
        forceActiveFocus(Qt.MouseFocusReason);
        menu = editMenu.createObject(field) as Menu;
        menu.popup(x, y);
    }

    implicitWidth: placeholder.implicitWidth + leftPadding + rightPadding
    implicitHeight: implicitBackgroundHeight
    leftPadding: symbol.length > 0 ? icon.x + icon.width + VTRTheme.spacing : 10
    rightPadding: clear.visible ? clear.width + VTRTheme.spacing + 4 : 4
    verticalAlignment: TextInput.AlignVCenter
    maximumLength: 200
    selectByMouse: true
    // The menu has the keyboard meanwhile.
    persistentSelection: menu !== null
    activeFocusOnTab: true
    color: VTRTheme.textPrimary
    selectionColor: VTRTheme.blue
    selectedTextColor: VTRTheme.textPrimary
    font.family: VTRTheme.fontFamily
    font.pixelSize: VTRTheme.bodySize
    onReleased: event => {
        if (event.button === Qt.RightButton)
            openMenu(event.x, height);
    }
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Menu
            || (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier);
        if (event.accepted)
            openMenu(cursorRectangle.x, height);
    }

    background: FieldSurface {
        color: field.fill
    }

    Symbol {
        id: icon

        x: 10
        y: Math.ceil((parent.height - height) / 2)
        visible: field.symbol.length > 0
        name: field.symbol
        size: 14
        color: VTRTheme.textMuted
    }

    PlainText {
        id: placeholder

        x: field.leftPadding
        width: field.width - field.leftPadding - field.rightPadding
        height: parent.height
        visible: field.text.length === 0 && field.preeditText.length === 0
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        text: field.placeholderText
        font: field.font
        color: VTRTheme.textMuted
    }

    ToolButton {
        id: clear

        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        visible: field.clearable && field.text.length > 0
        icon.name: "xmark.circle.fill"
        icon.width: 14
        icon.color: VTRTheme.textMuted
        text: "Metni temizle"
        onClicked: {
            field.clear();
            field.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    FocusRing {
        control: field
        visible: field.activeFocus || field.menu !== null
    }

    Component {
        id: editMenu

        Menu {
            contentWidth: 160
            onOpened: currentIndex = 0
            onClosed: {
                field.menu = null;
                destroy();
            }

            MenuItem {
                text: "Kes"
                enabled: field.selectedText.length > 0
                onTriggered: field.cut()
            }
            MenuItem {
                text: "Kopyala"
                enabled: field.selectedText.length > 0
                onTriggered: field.copy()
            }
            MenuItem {
                text: "Yapıştır"
                enabled: field.canPaste
                onTriggered: field.paste()
            }
            MenuItem {
                text: "Tümünü Seç"
                enabled: field.length > 0
                onTriggered: field.selectAll()
            }
        }
    }
}
