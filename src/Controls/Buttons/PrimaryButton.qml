import QtQuick
import Vantora.Controls

/// The button that starts the one thing a form is for. While `busy` it turns its spinner, says
/// `busyText` and cannot be pressed; it keeps its width, so that nothing around it moves.
RedButton {
    id: button

    required property string symbol
    property bool busy: false
    /// Empty for the spinner alone.
    property string busyText
    property int textSize: 14
    property bool hadRing: false

    horizontalPadding: 18
    verticalPadding: 14
    cornerRadius: 10
    shadowRadius: 8
    shadowOffset: 3
    groundOpacity: busy ? 0.6 : 1
    enabled: !busy
    opacity: enabled || busy ? 1 : 0.55
    // A disabled button loses the keyboard and gets it back without its ring.
    onClicked: hadRing = visualFocus
    onEnabledChanged: if (enabled && activeFocus && hadRing) focusReason = Qt.TabFocusReason
    Accessible.name: !busy ? text : busyText.length > 0 ? busyText : text + ", yükleniyor"

    contentItem: BusyLabel {
        symbol: button.symbol
        text: button.text
        busy: button.busy
        busyText: button.busyText
        textSize: button.textSize
    }
}
