import QtQuick
import Vantora.Controls

/// The place of a sheet that is made when it is first opened: the window's first frame does without
/// it, and without its types.
Item {
    id: late

    /// The sheet's file.
    required property url source
    /// What the sheet is made with.
    property var values: ({})
    /// The sheet is there, or on its way.
    property bool isOpen: false
    property Sheet sheet: null

    function open() {
        // One that is closing comes back.
        if (sheet)
            sheet.open();
        else
            isOpen = true;
    }

    onIsOpenChanged: {
        if (isOpen && !sheet)
            sheet = Qt.createComponent(source).createObject(late, values) as Sheet;
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
