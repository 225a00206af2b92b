import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The live status of one flight: where it goes, when, and what is known about the airports.
VTRCard {
    id: card

    required property flightStatusResult result
    /// A delay is the news, whether the flight is in the air or not.
    readonly property color statusColor: result.isDelayed ? VTRTheme.vtrRed
                                                          : result.isInAir ? VTRTheme.blue : VTRTheme.bestGreen
    /// All that the card shows, in words.
    readonly property string accessibleName: FlightStatusFormat.accessibleName(result)

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

            StatusBadge {
                objectName: "statusBadge"
                Layout.fillWidth: true
                Layout.maximumWidth: implicitWidth
                text: card.result.status
                color: card.statusColor
            }
        }

        Divider {
            Layout.fillWidth: true
        }

        RowLayout {
            spacing: VTRTheme.padding

            StatusRouteEnd {
                objectName: "statusDeparture"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
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

            StatusRouteEnd {
                objectName: "statusArrival"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                alignment: Text.AlignRight
                code: card.result.destinationAirport
                city: card.result.destinationCity
                scheduled: card.result.scheduledArrival
                estimated: card.result.estimatedArrival
            }
        }

        Flow {
            id: details

            objectName: "statusDetails"
            Layout.fillWidth: true
            visible: terminal.hasValue || gate.hasValue || belt.hasValue
            spacing: VTRTheme.spacing

            StatusDetail {
                id: terminal

                symbol: "building.2"
                label: "Terminal"
                value: card.result.terminal
                widest: details.width
            }

            StatusDetail {
                id: gate

                symbol: "door.left.hand.open"
                label: "Kapı"
                value: card.result.gate
                widest: details.width
            }

            StatusDetail {
                id: belt

                symbol: "bag.badge.questionmark"
                label: "Bagaj"
                value: card.result.baggageBelt
                widest: details.width
            }
        }
    }
}
