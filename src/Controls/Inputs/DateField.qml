pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// A field for a day. It shows `value` in Turkish, as long as there is room for, and changes its
/// day alone: the time of day stays. Right and Up step a day forward, Left and Down back; Space,
/// Return and a click open the month. The owner binds `value` and stores what `edited` brings.
Button {
    id: field

    /// What the date means, for assistive technology.
    required property string label
    required property date value
    /// The month dims the days before this one; they can be chosen all the same.
    property date dimmedBefore
    property color fill: VTRTheme.cardBgLight
    /// While it is open.
    property MonthPopup month: null
    readonly property string fullText: DateEditing.fullText(value)
    readonly property bool isExpanded: month !== null

    signal edited(date value)

    leftPadding: 10
    rightPadding: 8
    implicitHeight: implicitBackgroundHeight
    text: label
    down: pressed || month !== null
    Accessible.description: fullText + ". Oklar günü değiştirir, Boşluk takvimi açar."
    Keys.onLeftPressed: step(-1)
    Keys.onDownPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onUpPressed: step(1)
    onClicked: {
        month = monthPopup.createObject(field) as MonthPopup;
        month.open();
    }

    function step(days: int) {
        edited(DateEditing.addDays(value, days));
        ScreenReader.announce(DateEditing.fullText(value));
    }

    background: FieldSurface {
        color: field.fill

        PressTint {
            control: field
        }
    }
    contentItem: RowLayout {
        spacing: 8

        Symbol {
            name: "calendar"
            size: 14
            color: VTRTheme.textSecondary
        }
        PlainText {
            toolTip: text === field.fullText ? "" : field.fullText

            Layout.fillWidth: true
            Layout.preferredWidth: DateEditing.widestFullText(font)
            text: DateEditing.fittingText(field.value, font, width)
        }
        Symbol {
            name: "chevron.down"
            size: 14
            color: VTRTheme.textMuted
        }
    }

    Component {
        id: monthPopup

        MonthPopup {
            parent: field
            value: field.value
            dimmedBefore: field.dimmedBefore
            onChosen: value => field.edited(value)
            onClosed: destroy()
        }
    }
}
