import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// One flight offer: who flies when, what it costs, and where it is booked. The list sets its size.
Item {
    id: card

    required property flightOption flight
    /// The keyboard is on this card.
    property bool showsFocus: false
    readonly property bool isHovered: hover.hovered
    readonly property string lowSeatWarning: FlightCardFormat.lowSeatWarning(flight)

    /// Opens the offer's booking page in the browser.
    function book() {
        ExternalLinks.openBooking(card.flight);
    }

    HoverHandler {
        id: hover
    }

    RoundedSurface {
        anchors.fill: parent
        radius: VTRTheme.cardRadius
        color: card.isHovered ? VTRTheme.cardBgLight : VTRTheme.cardBg
        borderWidth: 1
        borderColor: card.isHovered ? VTRTheme.withOpacity(VTRTheme.vtrRed, 0.5) : VTRTheme.cardBorder
        shadowColor: Qt.rgba(0, 0, 0, 0.25)
        shadowRadius: 6
        shadowOffset: 3
    }

    FocusRing {
        control: card
        cornerRadius: VTRTheme.cardRadius
        visible: card.showsFocus
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        anchors.topMargin: 16
        anchors.bottomMargin: 16
        spacing: 20

        FlightIdentity {
            Layout.preferredWidth: 170
            flightNumber: card.flight.flightNumber
            aircraft: card.flight.aircraft
        }

        Item { Layout.fillWidth: true }

        FlightTimes {
            flight: card.flight
        }

        Item { Layout.fillWidth: true }

        Column {
            Layout.preferredWidth: 112
            spacing: VTRTheme.spacing

            Row {
                spacing: 10

                SymbolLabel {
                    symbol: "fork.knife"
                    text: "İkram"
                }

                SymbolLabel {
                    symbol: "suitcase"
                    text: "23 kg"
                }
            }

            Tag {
                visible: card.lowSeatWarning.length > 0
                width: Math.min(implicitWidth, parent.width)
                text: card.lowSeatWarning
                color: VTRTheme.gold
                fillOpacity: 0.15
            }
        }

        Column {
            Layout.preferredWidth: 150
            spacing: VTRTheme.spacing

            PlainText {
                width: parent.width
                horizontalAlignment: Text.AlignRight
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 13
                elide: Text.ElideRight
                text: card.flight.formattedPrice
                font.pixelSize: 22
                font.weight: Font.ExtraBold
            }

            Button {
                id: bookButton

                anchors.right: parent.right
                focusPolicy: Qt.NoFocus
                highlighted: true
                text: "VTR'de Satın Al"
                horizontalPadding: 14
                verticalPadding: 8
                font.weight: Font.Bold
                onClicked: card.book()
                // Otherwise the second click would book again.
                onDoubleClicked: {}

                contentItem: SymbolLabel {
                    spacing: bookButton.spacing
                    symbol: "arrow.up.right"
                    symbolSize: 10
                    isSymbolLast: true
                    text: bookButton.text
                    color: VTRTheme.textPrimary
                    size: bookButton.font.pixelSize
                    weight: bookButton.font.weight
                }
            }
        }
    }
}
