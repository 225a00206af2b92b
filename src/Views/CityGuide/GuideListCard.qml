pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// A titled list of short texts, each behind a mark.
VTRCard {
    id: card

    required property string symbol
    required property string title
    property color titleColor: VTRTheme.textPrimary
    required property list<string> entries
    property int entrySize: VTRTheme.bodySize
    required property Component mark

    ColumnLayout {
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: VTRTheme.spacing

        SymbolLabel {
            Layout.bottomMargin: 2
            spacing: 6
            symbol: card.symbol
            text: card.title
            color: card.titleColor
            size: 14
            weight: Font.Bold
            role: Accessible.Heading
        }

        Repeater {
            model: ShownText.firstOf(card.entries)

            RowLayout {
                id: row

                required property string modelData

                Layout.fillWidth: true
                spacing: 11

                // The mark stands in the middle of the first line.
                Item {
                    Layout.alignment: Qt.AlignTop
                    implicitWidth: 12
                    implicitHeight: firstLine.height

                    Loader {
                        anchors.centerIn: parent
                        sourceComponent: card.mark
                    }

                    TextMetrics {
                        id: firstLine

                        font: entry.font
                        text: "Ş"
                    }
                }

                PlainText {
                    id: entry

                    Layout.fillWidth: true
                    wrapMode: Text.Wrap
                    text: row.modelData
                    color: VTRTheme.textSecondary
                    font.pixelSize: card.entrySize
                }
            }
        }
    }
}
