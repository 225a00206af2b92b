import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// A sheet whose content is a page: children stand in it one under the other. Keys that they leave alone
/// scroll it.
Sheet {
    default property alias pageContent: column.data
    readonly property alias page: page

    keyTarget: page

    ScrollPage {
        id: page

        objectName: "sheetPage"
        anchors.fill: parent
        contentHeight: column.height + 2 * VTRTheme.padding

        ColumnLayout {
            id: column

            x: VTRTheme.padding
            y: VTRTheme.padding
            width: page.width - 2 * VTRTheme.padding
            spacing: VTRTheme.padding
        }
    }
}
