import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// One promotion of the airline: what it offers, where and until when.
VTRCard {
    id: card

    required property promotionItem promotion
    readonly property bool hasFooter: promotion.route.length > 0 || promotion.validUntil.length > 0

    component FooterText: PlainText {
        Layout.fillWidth: true
        Layout.maximumWidth: Math.ceil(implicitWidth)
        color: VTRTheme.textMuted
        font.pixelSize: 11
        elide: Text.ElideRight
    }

    ColumnLayout {
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: VTRTheme.spacing

        RowLayout {
            spacing: 12

            PlainText {
                Layout.fillWidth: true
                wrapMode: Text.Wrap
                text: card.promotion.title
                font.pixelSize: 15
                font.weight: Font.Bold
                Accessible.role: Accessible.Heading
            }

            Tag {
                Layout.alignment: Qt.AlignTop
                Layout.maximumWidth: card.width / 2
                visible: text.length > 0
                text: card.promotion.discount
                color: VTRTheme.textPrimary
                fill: VTRTheme.bestGreen
                size: 11
                cornerRadius: 6
                horizontalPadding: 8
                verticalPadding: 3
            }
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            wrapMode: Text.Wrap
            text: card.promotion.description
            color: VTRTheme.textSecondary
        }

        RowLayout {
            visible: card.hasFooter
            spacing: VTRTheme.padding

            RowLayout {
                visible: card.promotion.route.length > 0
                spacing: 4

                Symbol {
                    name: "airplane"
                    size: 11
                    color: VTRTheme.textMuted
                }

                FooterText {
                    text: card.promotion.route
                }
            }

            FooterText {
                visible: card.promotion.validUntil.length > 0
                text: "Son Geçerlilik: " + card.promotion.validUntil
            }

            Item { Layout.fillWidth: true }
        }
    }
}
