import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The month that drops from a date field, made for one opening. Escape and a click beside it leave
/// without a change.
T.Popup {
    id: monthPanel

    /// The date to begin with.
    required property date value
    property date dimmedBefore
    property bool opensUpwards: false

    /// A day was chosen.
    signal taken(date value)

    x: 0
    y: opensUpwards ? -height - 4 : parent.height + 4
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: VTRTheme.spacing
    padding: 12
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onAboutToShow: {
        opensUpwards = parent.mapToItem(null, 0, parent.height + height + 12).y > parent.Window.height;
        focusReturn.remember(parent);
    }
    onClosed: focusReturn.restore()

    // What lies behind stays as it looks, and does not answer the pointer.
    T.Overlay.modal: Item {}

    background: PopUpSurface {}

    contentItem: MonthView {
        objectName: "monthView"
        cursor: monthPanel.value
        dimmedBefore: monthPanel.dimmedBefore
        focus: true
        onTaken: day => {
            monthPanel.close();
            monthPanel.taken(day);
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.hoverDuration }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.hoverDuration }
    }

    FocusReturn {
        id: focusReturn
    }
}
