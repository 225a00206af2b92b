pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora.Controls

/// The month that drops from a date field, made for one opening. The arrows move by days and weeks,
/// PageUp, PageDown and the wheel by months, Home and End within the month; Return, Space and a click
/// take the day. Escape and a click beside it leave without a change.
Popup {
    id: monthPopup

    /// The day chosen so far.
    required property date value
    /// Days before this one are dimmed; they can be chosen all the same.
    property date dimmedBefore
    /// The day that Return would take, with the time of day to keep.
    property date cursor: value
    property bool opensUpwards: false

    /// A day was chosen.
    signal taken(date value)

    function take(day: date) {
        close();
        taken(day);
    }

    function showMonth(step: int) {
        cursor = DateEditing.addMonths(cursor, step);
        if (!days.activeFocus)
            ScreenReader.announce(DateEditing.monthText(cursor));
    }

    x: 0
    y: opensUpwards ? -height - 4 : parent.height + 4
    contentWidth: view.implicitWidth
    contentHeight: view.implicitHeight
    padding: 12
    focus: true

    onAboutToShow: {
        opensUpwards = parent.mapToItem(null, 0, parent.height + height + 12).y > parent.Window.height;
        focusReturn.remember(parent.Window.window.activeFocusItem);
    }
    onClosed: focusReturn.restore()
    // A day of another month may stand in the same place.
    onCursorChanged: days.announceCurrentRow()

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.hoverDuration }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.hoverDuration }
    }

    FocusReturn {
        id: focusReturn
    }

    FocusScope {
        id: view

        objectName: "monthView"
        anchors.fill: parent
        implicitWidth: rows.implicitWidth
        implicitHeight: rows.implicitHeight
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: "Takvim"

        Keys.onPressed: event => {
            event.accepted = DateEditing.moves(event.key);
            monthPopup.cursor = DateEditing.moved(monthPopup.cursor, event.key);
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
                if (notches !== 0)
                    monthPopup.showMonth(-notches);
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
                    text: DateEditing.monthText(monthPopup.cursor)
                    font.weight: Font.Bold
                }
                ToolButton {
                    icon.name: "chevron.left"
                    text: "Önceki ay"
                    focusPolicy: Qt.TabFocus
                    onClicked: monthPopup.showMonth(-1)
                }
                ToolButton {
                    icon.name: "chevron.right"
                    text: "Sonraki ay"
                    focusPolicy: Qt.TabFocus
                    onClicked: monthPopup.showMonth(1)
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

            AccessibleList {
                id: days

                implicitWidth: grid.implicitWidth
                implicitHeight: grid.implicitHeight
                focus: true
                activeFocusOnTab: true
                Accessible.name: "Günler"
                count: cells.count
                textOf: row => cell(row).text
                itemOf: row => cell(row)
                currentRow: DateEditing.gridRow(monthPopup.cursor)
                selectedRow: DateEditing.isSameMonth(monthPopup.cursor, monthPopup.value) ? DateEditing.gridRow(monthPopup.value) : -1
                isActive: activeFocus
                onRowPressed: row => monthPopup.take(cell(row).date)
                onRowFocused: row => {
                    monthPopup.cursor = cell(row).date;
                    forceActiveFocus(Qt.TabFocusReason);
                }

                function cell(row: int): MonthDay {
                    return cells.itemAt(row) as MonthDay;
                }

                Keys.onSpacePressed: monthPopup.take(monthPopup.cursor)

                // It lays out no delegates of its own: it would write into their context, which bound
                // components do not allow.
                T.AbstractMonthGrid {
                    id: calendar

                    visible: false
                    locale: Qt.locale("tr_TR") // qmllint disable
                    month: DateEditing.month(monthPopup.cursor)
                    year: DateEditing.year(monthPopup.cursor)
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
                            cursor: monthPopup.cursor
                            isChosen: index === days.selectedRow
                            dimmedBefore: monthPopup.dimmedBefore
                            showsFocus: index === days.currentRow && days.activeFocus
                            onClicked: monthPopup.take(date)
                        }
                    }
                }
            }
        }
    }
}
