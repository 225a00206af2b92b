import QtQuick
import Vantora.Controls

/// An error message in a page.
Item {
    id: banner

    required property string text

    implicitHeight: Math.max(message.implicitHeight, symbol.implicitHeight) + 2 * 12
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    RoundedSurface {
        anchors.fill: parent
        radius: 10
        color: VTRTheme.cardBg
        borderWidth: 1
        borderColor: VTRTheme.cardBorder
    }

    Symbol {
        id: symbol

        x: VTRTheme.padding
        y: 12
        name: "exclamationmark.triangle.fill"
        size: 14
        color: VTRTheme.gold
    }

    PlainText {
        id: message

        // A server may answer with a whole page; its beginning says enough.
        anchors.left: symbol.right
        anchors.right: tools.left
        anchors.leftMargin: 10
        anchors.rightMargin: 10
        y: 12
        wrapMode: Text.Wrap
        maximumLineCount: tools.isUnfolded ? 10000 : 4
        elide: Text.ElideRight
        text: banner.text
        Accessible.ignored: true
    }

    MessageTools {
        id: tools

        anchors.right: parent.right
        anchors.rightMargin: 8
        y: 6
        text: banner.text
        isCut: message.truncated
    }
}
