import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora

/// The calendar that drops from a date field. The arrows move by days and weeks, PageUp and
/// PageDown by months, Home and End within the month; Return takes the day, Escape leaves.
T.Popup {
    id: monthPanel

    /// The date that the field shows; the panel opens on its day.
    required property date value
    /// The day that Return would take, with the time of day of `value`.
    property date cursor: value
    property bool opensUpwards: false

    /// A day was chosen.
    signal taken(date value)

    x: 0
    y: opensUpwards ? -height - 4 : parent.height + 4
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: VTRTheme.spacing
    padding: 12
    modal: true
    dim: false
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutside

    onAboutToShow: {
        cursor = value;
        opensUpwards = parent.mapToItem(null, 0, parent.height + height + 12).y > parent.Window.height;
        focusReturn.remember(parent);
    }
    onClosed: focusReturn.restore()

    /// Moves by months.
    function showMonth(step: int) {
        cursor = DateEditing.addMonths(cursor, step);
    }

    function take(day: date) {
        close();
        taken(day);
    }

    background: RoundedSurface {
        radius: 12
        color: VTRTheme.cardBgLight
        borderColor: Qt.lighter(VTRTheme.cardBgLight, 1.5)
        borderWidth: 1
        shadowColor: Qt.rgba(0, 0, 0, 0.45)
        shadowRadius: 20
        shadowOffset: 8
    }

    contentItem: ColumnLayout {
        spacing: 4
        Accessible.role: Accessible.Dialog
        Accessible.name: qsTr("Takvim")

        RowLayout {
            spacing: 4

            PlainText {
                Layout.fillWidth: true
                leftPadding: 8
                text: DateEditing.monthText(monthPanel.cursor)
                font.weight: Font.Bold
            }
            IconButton {
                symbol: "chevron.left"
                text: qsTr("Önceki ay")
                onClicked: monthPanel.showMonth(-1)
            }
            IconButton {
                symbol: "chevron.right"
                text: qsTr("Sonraki ay")
                onClicked: monthPanel.showMonth(1)
            }
        }

        T.AbstractDayOfWeekRow {
            id: weekdays

            implicitWidth: implicitContentWidth
            implicitHeight: implicitContentHeight
            spacing: 2
            locale: Qt.locale("tr_TR")
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

        // The keyboard's item is not the grid itself, whose role assistive technology never learns.
        Item {
            id: days

            implicitWidth: grid.implicitWidth
            implicitHeight: grid.implicitHeight
            focus: true
            activeFocusOnTab: true
            Accessible.role: Accessible.Table
            Accessible.name: DateEditing.fullText(monthPanel.cursor)
            Accessible.focusable: true

            Keys.onLeftPressed: monthPanel.cursor = DateEditing.addDays(monthPanel.cursor, -1)
            Keys.onRightPressed: monthPanel.cursor = DateEditing.addDays(monthPanel.cursor, 1)
            Keys.onUpPressed: monthPanel.cursor = DateEditing.addDays(monthPanel.cursor, -7)
            Keys.onDownPressed: monthPanel.cursor = DateEditing.addDays(monthPanel.cursor, 7)
            Keys.onReturnPressed: monthPanel.take(monthPanel.cursor)
            Keys.onEnterPressed: monthPanel.take(monthPanel.cursor)
            Keys.onSpacePressed: monthPanel.take(monthPanel.cursor)
            Keys.onPressed: event => {
                event.accepted = true;
                switch (event.key) {
                case Qt.Key_PageUp: monthPanel.showMonth(-1); break;
                case Qt.Key_PageDown: monthPanel.showMonth(1); break;
                case Qt.Key_Home: monthPanel.cursor = DateEditing.firstOfMonth(monthPanel.cursor); break;
                case Qt.Key_End: monthPanel.cursor = DateEditing.lastOfMonth(monthPanel.cursor); break;
                default: event.accepted = false;
                }
            }

            T.AbstractMonthGrid {
                id: grid

                implicitWidth: implicitContentWidth
                implicitHeight: implicitContentHeight
                spacing: 2
                locale: Qt.locale("tr_TR")
                month: DateEditing.month(monthPanel.cursor)
                year: DateEditing.year(monthPanel.cursor)
                activeFocusOnTab: false
                Accessible.ignored: true

                contentItem: Grid {
                    rows: 6
                    columns: 7
                    spacing: grid.spacing

                    Repeater {
                        model: grid.source
                        delegate: MonthDay {
                            cursor: monthPanel.cursor
                            showsFocus: isChosen && days.activeFocus
                            onClicked: monthPanel.take(value)
                        }
                    }
                }
            }
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.hoverDuration }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.hoverDuration }
    }

    FocusReturn {
        id: focusReturn
    }
}
