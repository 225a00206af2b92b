import QtQuick
import Vantora.Controls

/// One day in the month panel. The panel has the keyboard; the day answers the pointer.
BaseButton {
    id: cell

    required property int day
    required property int month
    required property int year
    required property bool today
    /// The day chosen in the panel, with the time of day to keep.
    required property date cursor
    required property date dimmedBefore

    readonly property bool isShownMonth: month === DateEditing.month(cursor)
    readonly property bool isChosen: isShownMonth && day === DateEditing.day(cursor)
    readonly property date value: DateEditing.onDay(cursor, year, month, day)

    readonly property bool isDimmed: !isShownMonth || DateEditing.isEarlier(value, dimmedBefore)

    implicitWidth: 36
    implicitHeight: 32
    focusPolicy: Qt.NoFocus
    text: DateEditing.fullText(value) + (today ? ", bugün" : "")

    background: RoundedSurface {
        radius: cell.cornerRadius
        color: cell.isChosen ? VTRTheme.vtrRed : "transparent"
        borderColor: cell.isChosen ? VTRTheme.textPrimary : VTRTheme.vtrRed
        borderWidth: cell.today ? 1.5 : 0

        PressTint {
            control: cell
            radius: cell.cornerRadius
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
