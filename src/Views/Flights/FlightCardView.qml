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

    readonly property string meal: "İkram"
    readonly property string baggage: "23 kg"
    readonly property string booking: "VTR'de Satın Al"

    /// One stop, whatever their number, for any flight that is not direct.
    function stopsText(flight: flightOption): string {
        return flight.isDirect ? "Direkt Uçuş" : "1 Aktarma";
    }

    /// What a card shows of this flight, for assistive technology.
    function inWords(flight: flightOption): string {
        return Array.of(flight.flightNumber, flight.origin + " " + flight.departureTime + " kalkış",
                        flight.destination + " " + flight.arrivalTime + " varış", flight.duration, stopsText(flight),
                        flight.formattedPrice, flight.lowSeatWarning, flight.aircraft, meal, baggage, booking)
                    .filter(text => text.length > 0).join(", ");
    }

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

        // The airline's mark with the flight number and the aircraft.
        Row {
            id: identity

            Layout.preferredWidth: 170
            spacing: 12

            RedSurface {
                id: mark

                anchors.verticalCenter: parent.verticalCenter
                width: 44
                height: 44
                radius: 22

                Symbol {
                    anchors.centerIn: parent
                    rotation: -45
                    name: "airplane"
                    size: 20
                }
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter
                width: identity.width - mark.width - identity.spacing
                spacing: 4

                Row {
                    width: parent.width
                    spacing: 6

                    PlainText {
                        width: Math.min(implicitWidth, parent.width - carrier.width - parent.spacing)
                        elide: Text.ElideRight
                        text: card.flight.flightNumber
                        font.pixelSize: 16
                        font.weight: Font.Bold
                    }

                    Tag {
                        id: carrier

                        anchors.verticalCenter: parent.verticalCenter
                        text: "VTR"
                        weight: Font.ExtraBold
                    }
                }

                PlainText {
                    width: parent.width
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    elide: Text.ElideRight
                    text: card.flight.aircraft
                    font.pixelSize: 11
                    color: VTRTheme.textMuted
                }
            }
        }

        Item { Layout.fillWidth: true }

        FlightTimes {
            flight: card.flight
            stopsText: card.stopsText(card.flight)
        }

        Item { Layout.fillWidth: true }

        Column {
            Layout.preferredWidth: 112
            spacing: VTRTheme.spacing

            Row {
                spacing: 10

                SymbolLabel {
                    symbol: "fork.knife"
                    text: card.meal
                }

                SymbolLabel {
                    symbol: "suitcase"
                    text: card.baggage
                }
            }

            Tag {
                visible: text.length > 0
                width: Math.min(implicitWidth, parent.width)
                text: card.flight.lowSeatWarning
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
                text: card.booking
                horizontalPadding: 14
                verticalPadding: 8
                font.weight: Font.Bold
                onClicked: card.book()

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
