import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// An entry of a Menu.
T.MenuItem {
    id: item

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: 12
    rightPadding: 24
    verticalPadding: 7
    Accessible.name: text
    Accessible.onPressAction: item.clicked()

    background: ItemHighlight {
        control: item
        isShown: item.highlighted
    }
    contentItem: PlainText {
        text: item.text
        opacity: item.enabled ? 1 : 0.4
    }
}
