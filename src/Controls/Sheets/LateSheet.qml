import QtQuick
import Vantora.Controls

/// The place of a sheet that is made when it is first opened: the window's first frame does without
/// it, and without its types.
Loader {
    id: late

    /// The sheet's file.
    required property url file
    /// What the sheet is made with.
    property var values: ({})
    /// The sheet is there, or on its way.
    property bool isOpen: false
    readonly property Sheet sheet: item as Sheet

    function open() {
        // One that is closing comes back.
        if (sheet)
            sheet.open();
        else
            isOpen = true;
    }

    onIsOpenChanged: {
        if (isOpen && !sheet)
            setSource(file, values);
        if (sheet)
            sheet.visible = isOpen;
    }

    Connections {
        target: late.sheet

        function onVisibleChanged() {
            late.isOpen = late.sheet.visible;
        }
    }
}
