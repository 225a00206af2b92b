import QtQuick
import Vantora.Controls

/// Loads a sheet when it is opened, and unloads it when it has closed: every opening starts anew, and the
/// window's first frame does without the sheet's types.
Loader {
    id: loader

    /// The sheet's file.
    required property url file
    /// What the sheet is made with.
    property var values: ({})
    property bool isOpen: false
    readonly property Sheet sheet: item as Sheet

    onIsOpenChanged: {
        if (isOpen) {
            setSource(file, values);
            sheet.open();
        } else {
            sheet?.close();
        }
    }

    Connections {
        target: loader.sheet

        function onClosed() {
            loader.isOpen = false;
            loader.source = "";
        }
    }
}
