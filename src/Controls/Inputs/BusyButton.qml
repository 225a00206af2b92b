import QtQuick
import Vantora.Controls

/// The button that starts the one thing a form is for. While `busy` it shows that, says `busyText`
/// and cannot be pressed; it keeps its width, so that nothing around it moves.
Button {
    id: busyButton

    property bool busy: false
    /// Empty for the indicator alone.
    property string busyText
    property bool isRaised: true
    property bool hadVisualFocus: false

    highlighted: true
    horizontalPadding: 18
    verticalPadding: 14
    spacing: VTRTheme.spacing
    radius: 10
    font.pixelSize: 14
    font.weight: Font.Bold
    enabled: !busy
    opacity: enabled || busy ? 1 : 0.55
    // A disabled button loses the keyboard and gets it back without its ring.
    onClicked: hadVisualFocus = visualFocus
    onEnabledChanged: if (enabled && activeFocus && hadVisualFocus) focusReason = Qt.TabFocusReason
    Accessible.name: !busy ? text : busyText.length > 0 ? busyText : text + ", yükleniyor"

    background: RedSurface {
        opacity: busyButton.busy ? 0.6 : 1
        radius: busyButton.radius
        raised: busyButton.isRaised
        shadowRadius: 8
        shadowOffset: 3

        PressTint {
            control: busyButton
        }
    }
    /// The room of the wider of its two looks.
    contentItem: Item {
        implicitWidth: Math.max(children[0].implicitWidth, children[1].implicitWidth)
        implicitHeight: Math.max(children[0].implicitHeight, children[1].implicitHeight)

        SymbolLabel {
            anchors.centerIn: parent
            visible: !busyButton.busy
            spacing: busyButton.spacing
            symbol: busyButton.icon.name
            text: busyButton.text
            color: VTRTheme.textPrimary
            size: busyButton.font.pixelSize
            weight: busyButton.font.weight
        }

        Row {
            anchors.centerIn: parent
            visible: busyButton.busy
            spacing: busyButton.spacing

            BusyIndicator {
                anchors.verticalCenter: parent.verticalCenter
                implicitWidth: busyButton.font.pixelSize + 2
                color: VTRTheme.textPrimary
            }
            PlainText {
                anchors.verticalCenter: parent.verticalCenter
                visible: text.length > 0
                text: busyButton.busyText
                font.pixelSize: busyButton.font.pixelSize
                font.weight: busyButton.font.weight
            }
        }
    }
}
