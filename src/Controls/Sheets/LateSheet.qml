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
    property bool isOpen: false
    readonly property Sheet sheet: item as Sheet

    onIsOpenChanged: {
        if (isOpen && !sheet)
            setSource(file, values);
        sheet.visible = isOpen;
    }

    Connections {
        target: late.sheet

        function onVisibleChanged() {
            late.isOpen = late.sheet.visible;
        }
    }
}
