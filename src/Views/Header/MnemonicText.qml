import QtQuick
import Vantora.Controls

/// A menu's text whose access key, the letter behind "&", is underlined while `showsMark`.
Row {
    id: label

    required property string text
    required property bool showsMark
    readonly property int mark: text.indexOf("&")

    component Part: PlainText {
        font.pixelSize: 12
        color: VTRTheme.textSecondary
        Accessible.ignored: true
    }

    Part { text: label.text.slice(0, Math.max(label.mark, 0)) }

    Part {
        text: label.text.slice(label.mark + 1, label.mark < 0 ? undefined : label.mark + 2)
        font.underline: label.mark >= 0 && label.showsMark
    }

    Part { text: label.mark < 0 ? "" : label.text.slice(label.mark + 2) }
}
