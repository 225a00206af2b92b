import QtQuick
import Vantora.Controls

/// The one card style: content is placed inside `padding` and the card grows with it.
Item {
    id: card

    default property alias content: contentItem.data
    property real padding: VTRTheme.padding

    implicitWidth: contentItem.childrenRect.width + 2 * padding
    implicitHeight: contentItem.childrenRect.height + 2 * padding

    CardBackground {
        anchors.fill: parent
    }

    Item {
        id: contentItem

        anchors.fill: parent
        anchors.margins: card.padding
    }
}
