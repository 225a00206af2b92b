pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
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
    readonly property date today: new Date()
    property bool opensUpwards: false

    /// A day was chosen.
    signal chosen(date value)

    function choose(day: date) {
        close();
        chosen(day);
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
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.HoverDuration }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.HoverDuration }
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
            const moved = DateEditing.moved(monthPopup.cursor, event.key);
            event.accepted = !DateEditing.isSameDay(moved, monthPopup.cursor);
            monthPopup.cursor = moved;
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

            Row {
                spacing: 2

                Repeater {
                    model: 7

                    PlainText {
                        required property int index

                        width: 36
                        height: 24
                        text: Qt.locale("tr_TR").standaloneDayName((index + 1) % 7, Locale.ShortFormat)
                        horizontalAlignment: Text.AlignHCenter
                        verticalAlignment: Text.AlignVCenter
                        font.pixelSize: 11
                        color: VTRTheme.textMuted
                        Accessible.ignored: true
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
                textOf: row => (cells.itemAt(row) as Button).text
                itemOf: row => cells.itemAt(row)
                currentRow: DateEditing.gridRow(monthPopup.cursor)
                selectedRow: DateEditing.isSameMonth(monthPopup.cursor, monthPopup.value) ? DateEditing.gridRow(monthPopup.value) : -1
                isActive: activeFocus
                onRowPressed: row => monthPopup.choose(DateEditing.dayInGrid(monthPopup.cursor, row))
                onRowFocused: row => {
                    monthPopup.cursor = DateEditing.dayInGrid(monthPopup.cursor, row);
                    forceActiveFocus(Qt.TabFocusReason);
                }

                Keys.onSpacePressed: monthPopup.choose(monthPopup.cursor)

                Grid {
                    id: grid

                    rows: 6
                    columns: 7
                    spacing: 2

                    Repeater {
                        id: cells

                        model: 42

                        // The month has the keyboard; a day answers the pointer.
                        delegate: Button {
                            id: cell

                            required property int index
                            readonly property date date: DateEditing.dayInGrid(monthPopup.cursor, index)
                            readonly property bool isToday: DateEditing.isSameDay(date, monthPopup.today)
                            readonly property bool isChosen: index === days.selectedRow
                            readonly property bool isDimmed: !DateEditing.isSameMonth(date, monthPopup.cursor)
                                                             || DateEditing.isEarlier(date, monthPopup.dimmedBefore)

                            implicitWidth: 36
                            implicitHeight: 32
                            padding: 0
                            focusPolicy: Qt.NoFocus
                            showsFocus: index === days.currentRow && days.activeFocus
                            text: DateEditing.fullText(date) + (isToday ? ", bugün" : "")
                            onClicked: monthPopup.choose(date)

                            background: RoundedSurface {
                                radius: cell.radius
                                color: cell.isChosen ? VTRTheme.vtrRed : "transparent"
                                borderColor: cell.isChosen ? VTRTheme.textPrimary : VTRTheme.vtrRed
                                borderWidth: cell.isToday ? 1.5 : 0

                                PressTint {
                                    control: cell
                                }
                            }
                            contentItem: PlainText {
                                text: cell.date.getDate()
                                horizontalAlignment: Text.AlignHCenter
                                verticalAlignment: Text.AlignVCenter
                                font.weight: cell.isChosen || cell.isToday ? Font.Bold : Font.Normal
                                color: cell.isDimmed && !cell.isChosen ? VTRTheme.textMuted : VTRTheme.textPrimary
                            }
                        }
                    }
                }
            }
        }
    }
}
