pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// Chooses the airport of departure or of arrival: the table, filtered as one types. Choosing closes
/// the sheet and changes the search; closing it otherwise changes nothing. The keyboard stays in the
/// field; Up and Down move through the list, Return takes the marked row.
Sheet {
    id: pickerSheet

    required property FlightSearchViewModel search
    required property bool choosesOrigin
    readonly property string selectedCode: choosesOrigin ? search.originCode : search.destinationCode
    /// Codes of the airports that match what is typed.
    property list<string> matches
    /// The arrows moved last: a screen reader follows them through the rows, until something is typed.
    property bool isInRows: false

    function choose(code: string) {
        if (choosesOrigin)
            search.originCode = code;
        else
            search.destinationCode = code;
        close();
    }

    /// What the row shows, for assistive technology; empty where there is none.
    function inWords(row: int): string {
        if (row < 0)
            return "";
        const airport = SearchChoices.airport(matches[row]);
        return `${airport.code}, ${airport.city}, ${airport.country}, ${airport.name}${airport.hub ? ", HUB" : ""}`;
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
        isInRows = true;
        rows.announceCurrentRow();
    }

    /// Filters the list and marks what Return should take: the first match, or, while nothing is
    /// typed, the airport chosen so far.
    function filter(query: string) {
        // The list would complain of a current row that is gone.
        list.currentIndex = -1;
        matches = SearchChoices.airports(query);
        const typed = query.trim().length > 0;
        list.currentIndex = typed ? Math.min(0, matches.length - 1) : rows.selectedRow;
        list.positionViewAtIndex(Math.max(list.currentIndex, 0), typed ? ListView.Beginning : ListView.Center);
    }

    title: choosesOrigin ? "Kalkış Havalimanı Seçin" : "Varış Havalimanı Seçin"
    implicitWidth: 480
    implicitHeight: 520
    fill: VTRTheme.cardBg
    Component.onCompleted: filter("")

    // What is found is announced when the typing pauses.
    Timer {
        id: announcing

        interval: 500
        onTriggered: {
            const row = list.currentIndex;
            ScreenReader.announce(list.count > 0 ? pickerSheet.inWords(row) + ", " + (row + 1) + " / " + list.count
                                                 : noMatches.heading);
        }
    }

    TextField {
        id: field

        objectName: "airportSearch"
        x: VTRTheme.padding
        y: VTRTheme.padding
        width: parent.width - 2 * VTRTheme.padding
        focus: true
        symbol: "magnifyingglass"
        Accessible.name: "Havalimanı ara"
        placeholderText: "Şehir, ülke veya havalimanı kodu (örn: IST, Londra, JFK)..."
        clearable: true
        onTextChanged: {
            pickerSheet.filter(text);
            if (pickerSheet.isInRows)
                ScreenReader.focus(field);
            pickerSheet.isInRows = false;
            announcing.restart();
        }
        onAccepted: if (list.currentIndex >= 0) pickerSheet.choose(pickerSheet.matches[list.currentIndex])
        Keys.onPressed: event => event.accepted = pickerSheet.moveByKey(event.key)
    }

    AccessibleList {
        id: rows

        anchors.top: field.bottom
        anchors.topMargin: VTRTheme.padding
        anchors.bottom: parent.bottom
        x: VTRTheme.padding
        // The scroll bar has the room beside the rows.
        width: parent.width - VTRTheme.padding
        Accessible.name: "Havalimanları"
        count: pickerSheet.matches.length
        textOf: row => pickerSheet.inWords(row)
        itemOf: row => list.itemAtIndex(row)
        currentRow: list.currentIndex
        selectedRow: pickerSheet.matches.indexOf(pickerSheet.selectedCode)
        isActive: pickerSheet.isInRows
        onRowPressed: row => pickerSheet.choose(pickerSheet.matches[row])
        onRowFocused: row => pickerSheet.showRow(row)

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
            model: pickerSheet.matches

            delegate: AirportRowView {
                required property int index
                required property string modelData

                width: ListView.view.width - VTRTheme.padding
                airport: SearchChoices.airport(modelData)
                isSelected: modelData === pickerSheet.selectedCode
                isMarked: ListView.isCurrentItem
                onClicked: pickerSheet.choose(modelData)
            }

            T.ScrollBar.vertical: ScrollBar {}
        }
    }

    MessagePanel {
        id: noMatches

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
