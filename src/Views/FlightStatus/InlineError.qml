import QtQuick
import QtQuick.Layouts
import Vantora

/// One line that says what went wrong, above something that is still worth seeing.
RowLayout {
    id: line

    required property string text

    spacing: 6
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Symbol {
        Layout.alignment: Qt.AlignTop
        name: "exclamationmark.triangle.fill"
        size: 12
        color: VTRTheme.gold
    }

    PlainText {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
        maximumLineCount: 3
        elide: Text.ElideRight
        text: line.text
        color: VTRTheme.textSecondary
        font.pixelSize: 12
    }
}
