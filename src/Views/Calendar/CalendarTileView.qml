import QtQuick
import Vantora
import Vantora.Controls

/// One day of the fare chart as a tile.
CalendarDay {
    id: tile

    verticalPadding: 8
    horizontalPadding: 12

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: tile.selectedFirst(VTRTheme.vtrRed,
                                  VTRTheme.withOpacity(VTRTheme.bestGreen, tile.isHovered ? 0.22 : 0.15),
                                  tile.isHovered ? Qt.lighter(VTRTheme.cardBgLight, 1.2) : VTRTheme.cardBgLight)
        borderWidth: 1
        borderColor: tile.selectedFirst(Qt.rgba(1, 1, 1, 0.3), VTRTheme.withOpacity(VTRTheme.bestGreen, 0.4),
                                        VTRTheme.cardBorder)

        PressTint {
            control: tile
            isHovered: tile.isSelected && tile.isHovered
        }
    }

    contentItem: Column {
        spacing: 3

        Line {
            isOnRed: tile.isSelected
            text: PriceCalendarFormat.formatDayOfWeek(tile.price.date, true)
            font.pixelSize: 10
            font.weight: Font.Medium
            color: VTRTheme.textMuted
        }

        Line {
            isOnRed: tile.isSelected
            text: PriceCalendarFormat.formatDateShort(tile.price.date)
            font.pixelSize: 12
            font.weight: Font.Bold
        }

        Line {
            isOnRed: tile.isSelected
            objectName: "price"
            width: Math.min(implicitWidth, tile.availableWidth)
            elide: Text.ElideRight
            text: PriceCalendarFormat.wholeAmount(tile.price.amount) + " " + tile.currency
            font.pixelSize: 11
            font.weight: Font.Bold
            color: tile.isBest ? VTRTheme.bestGreen : VTRTheme.textSecondary
            styleColor: Qt.rgba(0.2, 0, 0.03, tile.isBest ? 0.8 : 0.55)
        }
    }

    component Line: PlainText {
        /// A dark edge keeps the colours readable there.
        required property bool isOnRed

        anchors.horizontalCenter: parent.horizontalCenter
        style: isOnRed ? Text.Outline : Text.Normal
        styleColor: Qt.rgba(0.2, 0, 0.03, 0.55)
    }
}
