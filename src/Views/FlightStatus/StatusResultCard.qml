import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The live status of one flight: where it goes, when, and what is known about the airports.
VTRCard {
    id: card

    required property flightStatusResult result
    /// All that the card shows, in words.
    readonly property string accessibleName:
        Array.of("Vantora " + result.flightNumber, result.status,
                 departure.airport + " " + departure.scheduled + " kalkış", departure.estimate,
                 arrival.airport + " " + arrival.scheduled + " varış", arrival.estimate,
                 terminal.text, gate.text, belt.text)
             .filter(text => text.length > 0).join(", ")

    // The server may name an airport where it should give a code, so each line keeps to its width.
    component Line: PlainText {
        anchors.left: parent.left
        anchors.right: parent.right
        elide: Text.ElideRight
    }

    /// One end of the route: airport, city, the scheduled time and, when it differs, the expected one.
    component RouteEnd: Column {
        id: end

        required property string code
        required property string city
        required property string scheduled
        required property string estimated
        /// Text.AlignLeft or Text.AlignRight.
        property int alignment: Text.AlignLeft
        readonly property string airport: city.length === 0 || city === code ? code : code + " " + city
        readonly property string estimate: estimated.length === 0 || estimated === scheduled ? "" : "Tahmini: " + estimated

        Layout.fillWidth: true
        Layout.preferredWidth: 1
        Layout.alignment: Qt.AlignTop
        spacing: 4

        Line {
            text: end.code
            horizontalAlignment: end.alignment
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 14
            font.pixelSize: 24
            font.weight: Font.ExtraBold
        }

        Line {
            text: end.city
            horizontalAlignment: end.alignment
            wrapMode: Text.Wrap
            maximumLineCount: 2
            color: VTRTheme.textMuted
        }

        Line {
            text: end.scheduled
            horizontalAlignment: end.alignment
            font.pixelSize: 14
            font.weight: Font.Bold
        }

        Line {
            visible: end.estimate.length > 0
            text: end.estimate
            horizontalAlignment: end.alignment
            color: VTRTheme.gold
            font.pixelSize: 12
            font.weight: Font.DemiBold
        }
    }

    /// One detail, such as the gate. It is seen only when there is a value.
    component Detail: Item {
        id: detail

        required property string symbol
        required property string label
        required property string value
        readonly property string text: value.length > 0 ? label + ": " + value : ""
        readonly property real gap: 12
        readonly property real widest: parent?.width ?? 0

        visible: text.length > 0
        // In a row details stand further apart than rows do.
        implicitWidth: caption.x + caption.width + gap
        implicitHeight: Math.max(icon.implicitHeight, caption.implicitHeight)

        Symbol {
            id: icon

            anchors.verticalCenter: parent.verticalCenter
            name: detail.symbol
            size: 12
            color: VTRTheme.textSecondary
        }

        PlainText {
            id: caption

            x: icon.width + 6
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), detail.widest - x - detail.gap)
            elide: Text.ElideRight
            text: detail.text
            color: VTRTheme.textSecondary
            font.pixelSize: 12
            font.weight: Font.Medium
        }
    }

    ColumnLayout {
        width: parent.width
        spacing: 14
        Accessible.role: Accessible.StaticText
        Accessible.name: card.accessibleName

        RowLayout {
            spacing: VTRTheme.spacing

            PlainText {
                Layout.maximumWidth: 200
                text: card.result.flightNumber
                elide: Text.ElideRight
                font.pixelSize: 20
                font.weight: Font.Bold
            }

            Tag {
                text: "VANTORA"
                weight: Font.Normal
                verticalPadding: 3
            }

            Item { Layout.fillWidth: true }

            // The status in words, with a dot, on a tint of its colour.
            Item {
                id: badge

                /// A delay is the news, whether the flight is in the air or not.
                readonly property color color: card.result.isDelayed ? VTRTheme.vtrRed
                                                                     : card.result.isInAir ? VTRTheme.blue : VTRTheme.bestGreen

                objectName: "statusBadge"
                Layout.fillWidth: true
                Layout.maximumWidth: implicitWidth
                implicitWidth: Math.ceil(status.implicitWidth) + status.x + 10
                implicitHeight: status.height + 2 * 4

                RoundedSurface {
                    anchors.fill: parent
                    radius: 12
                    color: VTRTheme.withOpacity(badge.color, 0.15)
                }

                Rectangle {
                    id: dot

                    x: 10
                    anchors.verticalCenter: parent.verticalCenter
                    width: 8
                    height: 8
                    radius: 4
                    color: badge.color
                    antialiasing: true
                }

                PlainText {
                    id: status

                    x: dot.x + dot.width + 6
                    y: 4
                    width: badge.width - x - 10
                    wrapMode: Text.Wrap
                    maximumLineCount: 2
                    elide: Text.ElideRight
                    text: card.result.status
                    color: badge.color
                    font.pixelSize: 12
                    font.weight: Font.Bold
                }
            }
        }

        Divider {
            Layout.fillWidth: true
        }

        RowLayout {
            spacing: VTRTheme.padding

            RouteEnd {
                id: departure

                objectName: "statusDeparture"
                code: card.result.originAirport
                city: card.result.originCity
                scheduled: card.result.scheduledDeparture
                estimated: card.result.estimatedDeparture
            }

            Symbol {
                name: "airplane"
                size: 22
                color: VTRTheme.textSecondary
            }

            RouteEnd {
                id: arrival

                objectName: "statusArrival"
                alignment: Text.AlignRight
                code: card.result.destinationAirport
                city: card.result.destinationCity
                scheduled: card.result.scheduledArrival
                estimated: card.result.estimatedArrival
            }
        }

        Flow {
            objectName: "statusDetails"
            Layout.fillWidth: true
            visible: (terminal.text + gate.text + belt.text).length > 0
            spacing: VTRTheme.spacing

            Detail {
                id: terminal

                symbol: "building.2"
                label: "Terminal"
                value: card.result.terminal
            }

            Detail {
                id: gate

                symbol: "door.left.hand.open"
                label: "Kapı"
                value: card.result.gate
            }

            Detail {
                id: belt

                symbol: "bag.badge.questionmark"
                label: "Bagaj"
                value: card.result.baggageBelt
            }
        }
    }
}
