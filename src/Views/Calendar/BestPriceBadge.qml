import QtQuick
import Vantora.Controls

/// The green badge that names the cheapest day.
Item {
    id: badge

    required property string text

    onTextChanged: arrival.restart()
    implicitWidth: row.implicitWidth + 24
    implicitHeight: row.implicitHeight + 12

    RoundedSurface {
        anchors.fill: parent
        radius: 20
        color: VTRTheme.bestGreen
        shadowColor: VTRTheme.withOpacity(VTRTheme.bestGreen, 0.4)
        shadowRadius: 6
        shadowOffset: 2
    }

    EaseInOut {
        id: arrival

        target: row
        property: "opacity"
        from: 0
        to: 1
        duration: Motion.resultsDuration
    }

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "sparkles"
            size: 12
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, 320)
            elide: Text.ElideRight
            text: badge.text
            font.pixelSize: 12
            font.weight: Font.Bold
        }
    }
}
