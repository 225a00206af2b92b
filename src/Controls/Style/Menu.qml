import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A menu of things to do. A click beside it closes it and does nothing else.
T.Menu {
    id: menu

    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    contentWidth: 220
    padding: 5
    margins: 4
    overlap: 1
    modal: true
    // A menu bar sets CloseOnPressOutsideParent; under a modal menu a click on its title would do nothing.
    onAboutToShow: closePolicy = T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    T.Overlay.modal: Item {}

    background: PopupSurface {}

    contentItem: ListView {
        implicitHeight: contentHeight
        interactive: false
        model: menu.contentModel
        currentIndex: menu.currentIndex
        keyNavigationWraps: true
    }
}
