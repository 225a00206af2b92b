import QtQuick
import Vantora
import Vantora.Controls

/// One day of the fare chart as a tile.
BaseButton {
    id: tile

    required property dailyPrice price
    required property bool isBest
    required property string currency
    required property bool isSelected

    readonly property bool isHovered: hovered

    text: PriceCalendarFormat.spokenDay(price, currency, isSelected)
    Accessible.selectable: true
    Accessible.selected: isSelected
    topPadding: 8
    bottomPadding: 8
    leftPadding: 12
    rightPadding: 12

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: tile.isSelected ? VTRTheme.vtrRed
                               : tile.isBest ? VTRTheme.withOpacity(VTRTheme.bestGreen, tile.isHovered ? 0.22 : 0.15)
                                             : tile.isHovered ? Qt.lighter(VTRTheme.cardBgLight, 1.2) : VTRTheme.cardBgLight
        borderWidth: 1
        borderColor: tile.isSelected ? Qt.rgba(1, 1, 1, 0.3)
                                     : tile.isBest ? VTRTheme.withOpacity(VTRTheme.bestGreen, 0.4) : VTRTheme.cardBorder

        PressTint {
            control: tile
            isHovered: tile.isSelected && tile.isHovered
            radius: tile.cornerRadius
        }
    }

    contentItem: Column {
        spacing: 3

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.formatDayOfWeek(tile.price.date, true)
            font.pixelSize: 10
            font.weight: Font.Medium
            color: VTRTheme.textMuted
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.formatDateShort(tile.price.date)
            font.pixelSize: 12
            font.weight: Font.Bold
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.wholeAmount(tile.price.amount) + " " + tile.currency
            font.pixelSize: 11
            font.weight: Font.Bold
            color: tile.isBest ? VTRTheme.bestGreen : VTRTheme.textSecondary
        }
    }
}
