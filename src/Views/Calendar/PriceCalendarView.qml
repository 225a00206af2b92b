pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The fares of the searched days, as bars and as tiles. Choosing a day loads its flights.
VTRCard {
    id: calendar

    required property FlightSearchViewModel viewModel
    /// Many texts are made with it.
    readonly property string currency: ShownText.of(shown.currency, true)
    readonly property ShownCalendar shown: ShownCalendar {
        viewModel: calendar.viewModel
    }

    /// Room for any day's amount with this unit.
    function amountWidth(pixelSize: int, unit: string): real {
        const font = Qt.font({ family: VTRTheme.fontFamily, pixelSize: pixelSize, weight: Font.Bold });
        return TextWidth.widest([PriceCalendarFormat.widestAmount(shown.highestPrice) + unit], font) + 1;
    }

    ColumnLayout {
        width: parent.width
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
                visible: opacity > 0
                opacity: calendar.shown.hasBestPrice ? 1 : 0
                text: PriceCalendarFormat.bestPriceText(calendar.shown.bestPrice, calendar.currency)

                Behavior on opacity {
                    EaseInOut { duration: Motion.resultsDuration }
                }
            }
        }

        SpokenList {
            id: days

            Layout.fillWidth: true
            // A day is 166 high; above and below it there is room.
            Layout.preferredHeight: 24 + 166 + 8
            label: "Günler"
            count: bars.count
            currentRow: bars.currentIndex
            selectedRow: bars.selectedIndex
            isActive: activeFocus
            activeFocusOnTab: count > 0
            Keys.forwardTo: [bars]
            onRowPressed: row => {
                bars.moveTo(row);
                bars.pressCurrent();
            }
            onRowFocused: row => bars.moveTo(row)

            function textOf(row: int): string {
                return PriceCalendarFormat.spokenDay(calendar.shown.days, row, calendar.currency);
            }
            function itemOf(row: int): Item {
                return bars.itemAtIndex(row);
            }

            DayStrip {
                id: bars

                anchors.fill: parent
                keyboard: days
                model: calendar.shown.days
                dayCount: calendar.shown.days.count
                selectedIndex: calendar.viewModel.selectedDayIndex
                narrowestDay: Math.max(46, calendar.amountWidth(10, "") + 2 * 4)
                spacing: 12
                leftMargin: 4
                rightMargin: 4

                delegate: CalendarBarColumn {
                    strip: bars
                    topInStrip: 24
                    fadesIn: calendar.shown.isArriving()
                    currency: calendar.currency
                    maxPrice: calendar.shown.highestPrice
                    selectedDate: calendar.viewModel.selectedDate
                    onClicked: calendar.viewModel.startSelectCalendarDate(price.date)
                }
            }
        }

        Divider {
            Layout.fillWidth: true
        }

        // The same days once more: for the eye and the pointer.
        Unspoken {
            Layout.fillWidth: true
            // A day is 62 high. Its focus ring needs room inside the clip, 3 more on every side.
            Layout.preferredHeight: 3 + 62 + 4
            Layout.topMargin: -3
            Layout.leftMargin: -1
            Layout.rightMargin: -1

            DayStrip {
                id: tiles

                anchors.fill: parent
                model: calendar.shown.days
                dayCount: calendar.shown.days.count
                selectedIndex: calendar.viewModel.selectedDayIndex
                narrowestDay: Math.max(84, Math.min(widestDay, calendar.amountWidth(11, " " + calendar.currency) + 2 * 12))
                widestDay: 140
                spacing: 10
                leftMargin: 3
                rightMargin: 3

                delegate: CalendarTileView {
                    strip: tiles
                    topInStrip: 3
                    fadesIn: calendar.shown.isArriving()
                    currency: calendar.currency
                    selectedDate: calendar.viewModel.selectedDate
                    onClicked: calendar.viewModel.startSelectCalendarDate(price.date)
                }
            }
        }
    }
}
