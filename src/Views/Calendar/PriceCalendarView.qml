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

    /// Between two days.
    readonly property real gap: 10
    /// The height of a day's bar with its texts, and of its tile.
    readonly property int barHeight: 166
    readonly property int tileHeight: 62

    readonly property font amountFont: Qt.font({
        family: VTRTheme.fontFamily, pixelSize: 11, weight: Font.Bold
    })
    /// Room for any day's amount in a tile.
    readonly property real amountWidth:
        ShownText.widest([PriceCalendarFormat.widestAmount(shown.highestPrice) + " " + currency], amountFont) + 1

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
                enabled: calendar.shown.hasBestPrice
                text: PriceCalendarFormat.bestPriceText(calendar.shown.bestPrice, calendar.currency)
                onClicked: if (calendar.shown.bestDayIndex >= 0) strip.moveTo(calendar.shown.bestDayIndex)

                Behavior on opacity {
                    EaseInOut { duration: Motion.ResultsDuration }
                }
            }
        }

        AccessibleList {
            id: days

            Layout.fillWidth: true
            // The gap between days is shared out to both sides of each.
            Layout.leftMargin: -calendar.gap / 2
            Layout.rightMargin: -calendar.gap / 2
            Layout.preferredHeight: divider.y + divider.height + 16 + calendar.tileHeight + 4
            Accessible.name: "Günler"
            count: strip.count
            textOf: row => PriceCalendarFormat.accessibleName(calendar.shown.at(row), calendar.currency)
            itemOf: row => strip.itemAtIndex(row)
            currentRow: strip.currentIndex
            selectedRow: strip.selectedIndex
            isActive: activeFocus
            activeFocusOnTab: count > 0
            Keys.forwardTo: [strip]
            onRowPressed: row => {
                strip.moveTo(row);
                strip.chosen(row);
            }
            onRowFocused: row => strip.moveTo(row)

            DayStrip {
                id: strip

                anchors.fill: parent
                keyboard: days
                model: calendar.shown.days
                dayCount: calendar.shown.days.count
                selectedIndex: calendar.viewModel.selectedDayIndex
                narrowestDay: Math.max(94, Math.min(widestDay, calendar.amountWidth + 2 * 12 + calendar.gap))
                widestDay: 180
                onChosen: index => calendar.viewModel.startSelectCalendarDate(calendar.shown.at(index).date)
                Component.onCompleted: open()

                // A bar and, under it, the tile of the same day.
                delegate: Item {
                    id: day

                    required property int index
                    required property dailyPrice price
                    // New in the strip, not scrolled to.
                    property bool isThere: !calendar.shown.isArriving()

                    width: strip.dayWidth
                    height: strip.height
                    opacity: isThere ? 1 : 0
                    Component.onCompleted: isThere = true

                    Behavior on opacity {
                        EaseInOut { duration: Motion.ResultsDuration }
                    }

                    CalendarBarColumn {
                        x: calendar.gap / 2 + 1
                        y: 24
                        width: day.width - calendar.gap - 2
                        height: calendar.barHeight
                        price: day.price
                        currency: calendar.currency
                        maxPrice: calendar.shown.highestPrice
                        selectedDate: calendar.viewModel.selectedDate
                        showsFocus: strip.showsFocus && day.ListView.isCurrentItem
                        onPressed: strip.pressed(day.index)
                        onClicked: strip.chosen(day.index)
                    }

                    CalendarTileView {
                        x: calendar.gap / 2
                        y: divider.y + divider.height + 16
                        width: day.width - calendar.gap
                        height: calendar.tileHeight
                        price: day.price
                        currency: calendar.currency
                        selectedDate: calendar.viewModel.selectedDate
                        onPressed: strip.pressed(day.index)
                        onClicked: strip.chosen(day.index)
                    }
                }

                Connections {
                    target: calendar.shown

                    function onChanged() {
                        strip.open();
                    }
                }
            }

            Divider {
                id: divider

                x: calendar.gap / 2
                y: 24 + calendar.barHeight + 8 + 16
                width: parent.width - calendar.gap
            }
        }
    }
}
