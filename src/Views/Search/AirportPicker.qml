pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// The content of the airport picker: header, search field, and the list under it. The keyboard
/// stays in the field; Up and Down move through the list, Return takes the marked row.
FocusScope {
    id: picker

    required property Sheet sheet
    required property string selectedCode

    signal chosen(code: string)

    function takeMarked() {
        if (list.currentIndex >= 0)
            chosen(airports.codeAt(list.currentIndex));
    }

    Component.onCompleted: {
        field.textInput.forceActiveFocus(Qt.PopupFocusReason);
        list.currentIndex = airports.rowOf(selectedCode);
        list.positionViewAtIndex(list.currentIndex, ListView.Center);
    }

    AirportListModel {
        id: airports

        query: field.text
        // What was marked may be gone; the first match is what Return should take.
        onQueryChanged: {
            const typed = query.trim().length > 0;
            list.currentIndex = typed ? Math.min(0, count - 1) : rowOf(picker.selectedCode);
            list.positionViewAtIndex(Math.max(list.currentIndex, 0), typed ? ListView.Beginning : ListView.Center);
        }
    }

    Column {
        id: top

        width: parent.width

        SheetHeader {
            width: parent.width
            sheet: picker.sheet
        }

        Item {
            width: parent.width
            height: field.height + 2 * VTRTheme.spacing

            InputField {
                id: field

                x: VTRTheme.padding
                y: VTRTheme.spacing
                width: parent.width - 2 * VTRTheme.padding
                focus: true
                symbol: "magnifyingglass"
                label: "Havalimanı ara"
                prompt: "Şehir, ülke veya havalimanı kodu (örn: IST, Londra, JFK)..."
                clearable: true
                onAccepted: picker.takeMarked()
                Keys.onDownPressed: list.incrementCurrentIndex()
                Keys.onUpPressed: list.decrementCurrentIndex()
                Keys.onPressed: event => {
                    const page = Math.max(1, Math.floor(list.height / 60));
                    const step = event.key === Qt.Key_PageDown ? page : event.key === Qt.Key_PageUp ? -page : 0;
                    event.accepted = step !== 0;
                    if (step !== 0)
                        list.currentIndex = Math.max(0, Math.min(list.currentIndex + step, list.count - 1));
                }
            }
        }
    }

    ListView {
        id: list

        anchors.top: top.bottom
        anchors.bottom: parent.bottom
        x: VTRTheme.padding
        width: parent.width - 2 * VTRTheme.padding
        bottomMargin: 12
        spacing: 4
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        model: airports
        Accessible.role: Accessible.List
        Accessible.name: "Havalimanları"

        delegate: AirportRowView {
            required property int index

            width: ListView.view.width
            isSelected: airport.code === picker.selectedCode
            isMarked: ListView.isCurrentItem
            onClicked: picker.chosen(airport.code)
        }

        NoAirportsPanel {
            width: parent.width
            visible: list.count === 0
        }

        PageScrollBar {
            id: bar

            anchors.right: parent.right
            anchors.rightMargin: -VTRTheme.padding + 2
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            orientation: Qt.Vertical
            size: list.visibleArea.heightRatio
            position: list.visibleArea.yPosition
            onPositionChanged: if (pressed) list.contentY = list.originY + position * list.contentHeight
        }
    }
}
