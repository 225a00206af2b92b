pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora.Controls

/// One month to choose a day from. The arrows move by days and weeks, PageUp, PageDown and the wheel
/// by months, Home and End within the month; Return, Space and a click take the day.
SpokenDialog {
    id: monthView

    /// The day that Return would take, with the time of day to keep.
    required property date cursor
    /// Days before this one are dimmed; they can be chosen all the same.
    property date dimmedBefore

    /// A day was chosen.
    signal taken(date day)

    implicitWidth: rows.implicitWidth
    implicitHeight: rows.implicitHeight
    Accessible.role: Accessible.Dialog
    Accessible.name: "Takvim"

    // A day of another month may stand in the same place.
    onCursorChanged: days.sayCurrentRow()
    Keys.onPressed: event => {
        event.accepted = DateEditing.moves(event.key);
        cursor = DateEditing.moved(cursor, event.key);
    }

    function showMonth(step: int) {
        cursor = DateEditing.addMonths(cursor, step);
        if (!days.activeFocus)
            Speech.say(DateEditing.monthText(cursor));
    }

    WheelHandler {
        /// What a touchpad turned short of a notch.
        property real turned: 0

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null
        onWheel: event => {
            turned += event.angleDelta.y / 120;
            const notches = Math.trunc(turned);
            turned -= notches;
            monthView.showMonth(-notches);
        }
    }

    ColumnLayout {
        id: rows

        anchors.fill: parent
        spacing: 4

        RowLayout {
            spacing: 4

            PlainText {
                Layout.fillWidth: true
                leftPadding: 8
                text: DateEditing.monthText(monthView.cursor)
                font.weight: Font.Bold
            }
            IconButton {
                symbol: "chevron.left"
                text: "Önceki ay"
                focusPolicy: Qt.TabFocus
                onClicked: monthView.showMonth(-1)
            }
            IconButton {
                symbol: "chevron.right"
                text: "Sonraki ay"
                focusPolicy: Qt.TabFocus
                onClicked: monthView.showMonth(1)
            }
        }

        T.AbstractDayOfWeekRow {
            id: weekdays

            implicitWidth: implicitContentWidth
            implicitHeight: implicitContentHeight
            spacing: 2
            locale: Qt.locale("tr_TR") // qmllint disable
            Accessible.ignored: true

            delegate: PlainText {
                required property string shortName

                width: 36
                height: 24
                text: shortName
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                font.pixelSize: 11
                color: VTRTheme.textMuted
                Accessible.ignored: true
            }
            contentItem: Row {
                spacing: weekdays.spacing

                Repeater {
                    model: weekdays.source
                    delegate: weekdays.delegate
                }
            }
        }

        SpokenList {
            id: days

            implicitWidth: grid.implicitWidth
            implicitHeight: grid.implicitHeight
            focus: true
            activeFocusOnTab: true
            label: "Günler"
            count: cells.count
            currentRow: DateEditing.gridRow(monthView.cursor)
            selectedRow: currentRow
            isActive: activeFocus
            onRowPressed: row => monthView.taken(cell(row).value)
            onRowFocused: row => {
                monthView.cursor = cell(row).value;
                forceActiveFocus(Qt.TabFocusReason);
            }

            function cell(row: int): MonthDay {
                return cells.itemAt(row) as MonthDay;
            }
            function textOf(row: int): string {
                return cell(row).text;
            }
            function itemOf(row: int): Item {
                return cell(row);
            }

            Keys.onReturnPressed: monthView.taken(monthView.cursor)
            Keys.onEnterPressed: monthView.taken(monthView.cursor)
            Keys.onSpacePressed: monthView.taken(monthView.cursor)

            // It lays out no delegates of its own: it would write into their context, which bound
            // components do not allow.
            T.AbstractMonthGrid {
                id: calendar

                visible: false
                locale: Qt.locale("tr_TR") // qmllint disable
                month: DateEditing.month(monthView.cursor)
                year: DateEditing.year(monthView.cursor)
            }

            Grid {
                id: grid

                rows: 6
                columns: 7
                spacing: 2

                Repeater {
                    id: cells

                    model: calendar.source
                    delegate: MonthDay {
                        cursor: monthView.cursor
                        dimmedBefore: monthView.dimmedBefore
                        showsFocus: isChosen && days.activeFocus
                        onClicked: monthView.taken(value)
                    }
                }
            }
        }
    }
}
