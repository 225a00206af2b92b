import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// An entry of an ActionMenu.
T.MenuItem {
    id: entry

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: 12
    rightPadding: 24
    verticalPadding: 7
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.onPressAction: entry.triggered()
    Keys.onReturnPressed: act()
    Keys.onEnterPressed: act()
    Keys.onSpacePressed: act()

    function act() {
        menu.dismiss();
        triggered();
    }

    background: MenuEntryGround {
        entry: entry
        isHighlighted: entry.highlighted
    }

    contentItem: PlainText {
        text: entry.text
        opacity: entry.enabled ? 1 : 0.4
    }
}
