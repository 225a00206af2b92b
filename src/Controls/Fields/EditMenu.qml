import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// What one can do with the text of a field, made for one opening.
ActionMenu {
    id: editMenu

    required property T.TextField input

    entryWidth: 160

    MenuEntry {
        text: "Kes"
        enabled: editMenu.input.selectedText.length > 0
        onTriggered: editMenu.input.cut()
    }

    MenuEntry {
        text: "Kopyala"
        enabled: editMenu.input.selectedText.length > 0
        onTriggered: editMenu.input.copy()
    }

    MenuEntry {
        text: "Yapıştır"
        enabled: editMenu.input.canPaste
        onTriggered: editMenu.input.paste()
    }

    MenuEntry {
        text: "Tümünü Seç"
        enabled: editMenu.input.length > 0
        onTriggered: editMenu.input.selectAll()
    }
}
