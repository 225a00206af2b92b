import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A menu of things to do; its entries are MenuEntry. A click beside it closes it and does nothing
/// else.
T.Menu {
    id: menu

    property real entryWidth: 220

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    padding: 5
    margins: 4
    overlap: 1
    modal: true

    T.Overlay.modal: Item {}

    background: PopUpSurface {}

    contentItem: ListView {
        implicitWidth: menu.entryWidth
        implicitHeight: contentHeight
        interactive: false
        model: menu.contentModel
        currentIndex: menu.currentIndex
        keyNavigationWraps: true
    }
}
