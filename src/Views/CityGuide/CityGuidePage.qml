import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The guide of a city: what it is in a few sentences and when it is at its best, what to see, what to
/// know.
Column {
    id: page

    required property cityGuideInfo guide

    component Paragraph: PlainText {
        Layout.fillWidth: true
        wrapMode: Text.Wrap
    }

    spacing: 12

    VTRCard {
        width: parent.width

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

                Paragraph {
                    text: page.guide.city + ", " + page.guide.country
                    font.pixelSize: 22
                    font.weight: Font.Bold
                    Accessible.role: Accessible.Heading
                }
            }

            Paragraph {
                lineHeight: 1.2
                text: page.guide.overview
                color: VTRTheme.textSecondary
            }

            ColumnLayout {
                Layout.topMargin: 2
                visible: page.guide.bestTimeToVisit.length > 0
                spacing: 2

                Paragraph {
                    text: "En İdeal Ziyaret Zamanı"
                    font.pixelSize: 12
                    font.weight: Font.Bold
                }

                Paragraph {
                    text: page.guide.bestTimeToVisit
                    color: VTRTheme.textMuted
                    font.pixelSize: 12
                }
            }
        }
    }

    GuideListCard {
        width: parent.width
        symbol: "sparkles"
        title: "Görülmesi Gereken Yerler"
        entries: page.guide.topAttractions
        mark: Rectangle {
            width: 6
            height: 6
            radius: 3
            color: VTRTheme.vtrRed
            antialiasing: true
        }
    }

    GuideListCard {
        width: parent.width
        symbol: "lightbulb.fill"
        title: "Yerel Seyahat İpuçları"
        titleColor: VTRTheme.gold
        entries: page.guide.localTips
        entrySize: 12
        mark: Symbol {
            name: "checkmark"
            size: 11
            color: VTRTheme.gold
        }
    }
}
