import QtQuick
import Vantora.Controls

/// What one does with a message that may be long: unfold it when it is cut short, and copy it.
Row {
    id: tools

    required property string text
    /// The message is cut short where it stands.
    required property bool isCut
    property bool isUnfolded: false

    spacing: 2
    onTextChanged: isUnfolded = false

    ToolButton {
        visible: tools.isCut || tools.isUnfolded
        icon.name: tools.isUnfolded ? "chevron.up" : "chevron.down"
        text: tools.isUnfolded ? "İletiyi kısalt" : "İletinin tümünü göster"
        onClicked: tools.isUnfolded = !tools.isUnfolded
    }
    ToolButton {
        icon.name: justCopied.running ? "checkmark" : "doc.on.doc"
        icon.width: 13
        text: justCopied.running ? "Kopyalandı" : "İletiyi kopyala"
        onClicked: {
            Clipboard.copy(tools.text);
            justCopied.restart();
            ScreenReader.announce(text);
        }
    }

    Timer {
        id: justCopied

        interval: 2000
    }
}
