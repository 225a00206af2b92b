import QtQuick
import QtQuick.Templates as T

/// Remembers which item had the keyboard when a popup opened, and hands it back when that closes,
/// with its focus ring if it showed one, which Qt does not.
QtObject {
    property Item item: null
    readonly property T.Control control: item as T.Control
    property bool hadVisualFocus: false

    function remember(focused: Item) {
        item = focused;
        hadVisualFocus = control !== null && control.visualFocus;
    }

    function restore() {
        if (item === null)
            return;
        const reason = hadVisualFocus ? Qt.TabFocusReason : Qt.OtherFocusReason;
        item.forceActiveFocus(reason);
        // Where Qt has given the focus back already, the reason is another.
        if (control !== null)
            control.focusReason = reason;
        item = null;
    }
}
