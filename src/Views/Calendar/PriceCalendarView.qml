pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The fares of the searched days, as bars and as tiles. Choosing a day loads its flights.
Item {
    id: calendar

    required property FlightSearchViewModel viewModel

    /// Room for the dearest day's amount with this unit, in any digits.
    function amountWidth(pixelSize: int, unit: string): real {
        const amount = PriceCalendarFormat.wholeAmount(viewModel.highestPrice).replace(/[0-9]/g, "8");
        const font = Qt.font({ family: VTRTheme.fontFamily, pixelSize: pixelSize, weight: Font.Bold });
        return TextWidth.widest([amount + unit], font) + 1;
    }

    implicitHeight: content.implicitHeight + 2 * VTRTheme.padding

    CardBackground {
        anchors.fill: parent
    }

    ColumnLayout {
        id: content

        anchors.fill: parent
        anchors.margins: VTRTheme.padding
        spacing: 16

        RowLayout {
            spacing: VTRTheme.spacing

            Column {
                Layout.fillWidth: true
                spacing: 4

                PlainText {
                    width: parent.width
                    elide: Text.ElideRight
                    text: "Esnek Tarihler Fiyat Grafiği"
                    font.pixelSize: 18
                    font.weight: Font.Bold
                    Accessible.role: Accessible.Heading
                }

                PlainText {
                    width: parent.width
                    elide: Text.ElideRight
                    text: "Farklı günlerdeki en düşük bilet fiyatlarını karşılaştırın ve en uygun güne uçun."
                    color: VTRTheme.textMuted
                }
            }

            BestPriceBadge {
                visible: calendar.viewModel.hasBestPrice
                text: PriceCalendarFormat.bestPriceText(calendar.viewModel.bestPrice, calendar.viewModel.currency)
            }
        }

        DayStrip {
            id: bars

            Layout.fillWidth: true
            // A day is 166 high; above and below it there is room.
            Layout.preferredHeight: 24 + 166 + 8
            viewModel: calendar.viewModel
            narrowestDay: Math.max(46, calendar.amountWidth(10, "") + 2 * 4)
            spacing: 12
            leftMargin: 4
            rightMargin: 4
            Accessible.name: "Fiyat grafiği"

            delegate: CalendarBarColumn {
                required property int index

                // A list decides about the place of its delegates, not about what is drawn there.
                transform: Translate { y: 24 }
                width: bars.dayWidth
                isBest: price.isBestPrice
                currency: calendar.viewModel.currency
                maxPrice: calendar.viewModel.highestPrice
                isSelected: price.date === calendar.viewModel.selectedDate
                focus: ListView.isCurrentItem
                focusPolicy: Qt.ClickFocus
                showsFocus: bars.showsFocus && ListView.isCurrentItem
                onPressed: {
                    bars.pointerMovedLast = true;
                    bars.currentIndex = index;
                }
                onClicked: calendar.viewModel.startSelectCalendarDate(price.date)
            }
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            color: VTRTheme.cardBorder
        }

        DayStrip {
            id: tiles

            Layout.fillWidth: true
            // A day is 62 high. Its focus ring needs room inside the clip, 3 more on every side.
            Layout.preferredHeight: 3 + 62 + 4
            Layout.topMargin: -3
            Layout.leftMargin: -1
            Layout.rightMargin: -1
            viewModel: calendar.viewModel
            narrowestDay: Math.max(84, calendar.amountWidth(11, " " + viewModel.currency) + 2 * 12)
            widestDay: 140
            spacing: 10
            leftMargin: 3
            rightMargin: 3
            Accessible.name: "Günler"

            delegate: CalendarTileView {
                required property int index

                transform: Translate { y: 3 }
                width: tiles.dayWidth
                isBest: price.isBestPrice
                currency: calendar.viewModel.currency
                isSelected: price.date === calendar.viewModel.selectedDate
                focus: ListView.isCurrentItem
                focusPolicy: Qt.ClickFocus
                showsFocus: tiles.showsFocus && ListView.isCurrentItem
                onPressed: {
                    tiles.pointerMovedLast = true;
                    tiles.currentIndex = index;
                }
                onClicked: calendar.viewModel.startSelectCalendarDate(price.date)
            }
        }
    }
}
