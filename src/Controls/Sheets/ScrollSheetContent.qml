import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// The content of a sheet that is a header over a page. Children stand in the page one under the
/// other; those of `headerContent` stand in the header, under its title.
FocusScope {
    id: sheetContent

    required property Sheet sheet
    required property string symbol
    property alias hasDivider: divider.visible
    property alias headerContent: header.content
    default property alias content: column.data
    readonly property alias page: page

    focus: true
    // Keys that the controls leave alone scroll the page.
    Keys.forwardTo: [page]

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        SheetHeader {
            id: header

            Layout.fillWidth: true
            sheet: sheetContent.sheet
            symbol: sheetContent.symbol
        }

        Divider {
            id: divider

            Layout.fillWidth: true
        }

        ScrollPage {
            id: page

            objectName: "sheetPage"
            Layout.fillWidth: true
            Layout.fillHeight: true
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
}
