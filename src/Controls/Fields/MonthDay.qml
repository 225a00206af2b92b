import QtQuick
import Vantora.Controls

/// One day of a month. The month has the keyboard; the day answers the pointer.
Button {
    id: cell

    required property int index
    required property int day
    required property int month
    required property int year
    required property bool today
    /// A moment of the month shown, with the time of day to keep.
    required property date cursor
    required property bool isChosen
    required property date dimmedBefore

    readonly property date date: DateEditing.onDay(cursor, year, month, day)
    readonly property bool isShownMonth: month === DateEditing.month(cursor)
    readonly property bool isDimmed: !isShownMonth || DateEditing.isEarlier(date, dimmedBefore)

    implicitWidth: 36
    implicitHeight: 32
    padding: 0
    focusPolicy: Qt.NoFocus
    text: DateEditing.fullText(date) + (today ? ", bugün" : "")

    background: RoundedSurface {
        radius: cell.radius
        color: cell.isChosen ? VTRTheme.vtrRed : "transparent"
        borderColor: cell.isChosen ? VTRTheme.textPrimary : VTRTheme.vtrRed
        borderWidth: cell.today ? 1.5 : 0

        PressTint {
            control: cell
            radius: cell.radius
        }
    }
    contentItem: PlainText {
        text: cell.day
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        font.weight: cell.isChosen || cell.today ? Font.Bold : Font.Normal
        color: cell.isDimmed && !cell.isChosen ? VTRTheme.textMuted : VTRTheme.textPrimary
    }
}
