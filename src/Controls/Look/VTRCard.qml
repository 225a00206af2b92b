import QtQuick
import Vantora.Controls

/// The one card style: content is placed inside `padding` and the card grows with it.
Item {
    id: card

    default property alias content: contentItem.data
    property real padding: VTRTheme.padding

    implicitWidth: contentItem.childrenRect.width + 2 * padding
    implicitHeight: contentItem.childrenRect.height + 2 * padding

    RoundedSurface {
        anchors.fill: parent
        radius: VTRTheme.cardRadius
        color: VTRTheme.cardBg
        borderColor: VTRTheme.cardBorder
        // Of the one-point outline the card's clip leaves the inner half.
        borderWidth: 0.5
        shadowColor: Qt.rgba(0, 0, 0, 0.3)
        shadowRadius: 8
        shadowOffset: 4
    }

    Item {
        id: contentItem

        anchors.fill: parent
        anchors.margins: card.padding
    }
}
