import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// What drops from a field. What lies behind keeps its look and does not answer the pointer.
T.Popup {
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: VTRTheme.spacing
    padding: 5
    modal: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    T.Overlay.modal: Item {}

    background: PopupSurface {}
}
