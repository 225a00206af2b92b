import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The city in a few sentences, and when it is at its best.
VTRCard {
    id: card

    required property cityGuideInfo guide
    readonly property string bestTime: guide.bestTimeToVisit

    ColumnLayout {
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: 10

        RowLayout {
            spacing: 10

            Symbol {
                Layout.alignment: Qt.AlignTop
                name: "sun.max.fill"
                size: 22
                color: VTRTheme.gold
            }

            PlainText {
                Layout.fillWidth: true
                wrapMode: Text.Wrap
                text: card.guide.city + ", " + card.guide.country
                font.pixelSize: 22
                font.weight: Font.Bold
                Accessible.role: Accessible.Heading
            }
        }

        PlainText {
            Layout.fillWidth: true
            wrapMode: Text.Wrap
            lineHeight: 1.2
            text: card.guide.overview
            color: VTRTheme.textSecondary
        }

        Column {
            Layout.fillWidth: true
            Layout.topMargin: 2
            visible: card.bestTime.length > 0
            spacing: 2

            PlainText {
                text: "En İdeal Ziyaret Zamanı"
                font.pixelSize: 12
                font.weight: Font.Bold
            }

            PlainText {
                width: parent.width
                wrapMode: Text.Wrap
                text: card.bestTime
                color: VTRTheme.textMuted
                font.pixelSize: 12
            }
        }
    }
}
