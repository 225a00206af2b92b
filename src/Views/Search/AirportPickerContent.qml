pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// The content of the airport picker: header, search field, and the list under it. The keyboard
/// stays in the field; Up and Down move through the list, Return takes the marked row.
FocusScope {
    id: picker

    required property Sheet sheet
    required property string selectedCode

    signal chosen(code: string)

    objectName: "airportPicker"
    focus: true

    /// The arrows moved last: a screen reader follows them through the rows, until something is typed.
    property bool isInRows: false

    function announceRow() {
        isInRows = true;
        rows.announceCurrentRow();
    }

    /// Moves in the list; false for a key that does not. Home and End are the text's until the arrows
    /// have gone into the list.
    function moveByKey(key: int): bool {
        const rowHeight = (list.contentHeight + list.spacing) / Math.max(list.count, 1);
        const page = Math.max(1, Math.floor(list.height / rowHeight));
        let row = list.currentIndex;
        if (key === Qt.Key_Up || key === Qt.Key_Down)
            row += key === Qt.Key_Up ? -1 : 1;
        else if (key === Qt.Key_PageUp || key === Qt.Key_PageDown)
            row += key === Qt.Key_PageUp ? -page : page;
        else if (isInRows && (key === Qt.Key_Home || key === Qt.Key_End))
            row = key === Qt.Key_Home ? 0 : list.count - 1;
        else
            return false;
        showRow(Math.min(Math.max(row, 0), list.count - 1));
        return true;
    }

    function showRow(row: int) {
        list.currentIndex = row;
        list.positionViewAtIndex(row, ListView.Contain);
        announceRow();
    }

    function takeMarked() {
        if (list.currentIndex >= 0)
            chosen(airports.codeAt(list.currentIndex));
    }

    /// Filters the list and marks what Return should take: the first match, or, while nothing is
    /// typed, the airport chosen so far.
    function filter(query: string) {
        // The list would complain of a current row that is gone.
        list.currentIndex = -1;
        airports.query = query;
        const typed = query.trim().length > 0;
        list.currentIndex = typed ? Math.min(0, airports.count - 1) : airports.rowOf(selectedCode);
        list.positionViewAtIndex(Math.max(list.currentIndex, 0), typed ? ListView.Beginning : ListView.Center);
    }

    Component.onCompleted: filter("")

    // What is found is announced when the typing pauses.
    Timer {
        id: news

        interval: 500
        onTriggered: {
            const row = list.currentIndex;
            ScreenReader.announce(airports.count > 0 ? airports.accessibleName(row) + ", " + (row + 1) + " / " + airports.count
                                                     : nothing.heading);
        }
    }

    AirportListModel {
        id: airports
    }

    Column {
        id: top

        width: parent.width
        spacing: VTRTheme.spacing

        SheetHeader {
            width: parent.width
            sheet: picker.sheet
        }

        Item {
            width: parent.width
            height: field.height + 2 * VTRTheme.spacing

            TextField {
                id: field

                x: VTRTheme.padding
                y: VTRTheme.spacing
                width: parent.width - 2 * VTRTheme.padding

                focus: true
                symbol: "magnifyingglass"
                Accessible.name: "Havalimanı ara"
                placeholderText: "Şehir, ülke veya havalimanı kodu (örn: IST, Londra, JFK)..."
                clearable: true
                onTextChanged: {
                    picker.filter(text);
                    if (picker.isInRows)
                        ScreenReader.focus(field);
                    picker.isInRows = false;
                    news.restart();
                }
                onAccepted: picker.takeMarked()
                Keys.onPressed: event => event.accepted = picker.moveByKey(event.key)
            }
        }
    }

    AccessibleList {
        id: rows

        anchors.top: top.bottom
        anchors.topMargin: top.spacing
        anchors.bottom: parent.bottom
        x: VTRTheme.padding
        // The scroll bar has the room beside the rows.
        width: parent.width - VTRTheme.padding
        Accessible.name: "Havalimanları"
        count: airports.count
        textOf: row => airports.accessibleName(row)
        itemOf: row => list.itemAtIndex(row)
        currentRow: list.currentIndex
        selectedRow: airports.count > 0 ? airports.rowOf(picker.selectedCode) : -1
        isActive: picker.isInRows
        onRowPressed: row => picker.chosen(airports.codeAt(row))
        onRowFocused: row => picker.showRow(row)

        ListView {
            id: list

            anchors.fill: parent
            bottomMargin: 12
            spacing: 4
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            highlightMoveDuration: 0
            // Buffered rows are made in the background: while one types, what comes into view would
            // still be missing.
            cacheBuffer: 0
            model: airports

            delegate: AirportRowView {
                required property int index

                width: ListView.view.width - VTRTheme.padding
                isSelected: airport.code === picker.selectedCode
                isMarked: ListView.isCurrentItem
                onClicked: picker.chosen(airport.code)
            }

            T.ScrollBar.vertical: ScrollBar {}
        }
    }

    MessagePanel {
        id: nothing

        objectName: "noAirports"
        x: rows.x
        y: rows.y
        width: rows.width - VTRTheme.padding
        visible: list.count === 0
        padding: 40
        symbol: "airplane.circle"
        symbolSize: 36
        heading: "Eşleşen havalimanı bulunamadı"
        headingColor: VTRTheme.textMuted
        headingSize: VTRTheme.calloutSize
        headingWeight: Font.Normal
    }
}
