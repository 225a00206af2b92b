import QtQuick
import Vantora

/// The flights of the selected day: heading, chips, and the list or what stands for it.
Item {
    id: section

    required property FlightSearchViewModel viewModel
    required property ScrollPage page
    /// Where this item begins in the page's content.
    required property real topInPage

    readonly property bool isSearching: viewModel.isSearchingFlightsOnly || viewModel.isLoading
    readonly property bool isEmpty: !isSearching && viewModel.filteredFlights.count === 0

    implicitHeight: content.height + 2 * VTRTheme.padding

    CardBackground {
        anchors.fill: parent
    }

    Column {
        id: content

        x: VTRTheme.padding
        y: VTRTheme.padding
        width: parent.width - 2 * VTRTheme.padding
        spacing: 16

        Column {
            width: parent.width
            spacing: 4

            PlainText {
                width: parent.width
                elide: Text.ElideRight
                text: section.viewModel.originCode + " ➔ " + section.viewModel.destinationCode + " Uçuş Seçenekleri"
                font.pixelSize: 18
                font.weight: Font.Bold
                Accessible.role: Accessible.Heading
            }

            PlainText {
                width: parent.width
                elide: Text.ElideRight
                text: section.viewModel.selectedDate + " tarihi için müsait olan Vantora Hava Yolları seferleri"
                font.pixelSize: 12
                color: VTRTheme.textMuted
            }
        }

        SortChips {
            viewModel: section.viewModel
        }

        Loader {
            width: parent.width
            active: section.isSearching
            visible: active
            sourceComponent: LoadingPanel {
                text: "Uçuşlar yükleniyor..."
                padding: 40
            }
        }

        Loader {
            width: parent.width
            active: section.isEmpty
            visible: active
            sourceComponent: NoFlightsPanel {}
        }

        FlightList {
            width: parent.width
            visible: !section.isSearching && !section.isEmpty
            viewModel: section.viewModel
            page: section.page
            topInPage: section.topInPage + content.y + y
        }
    }
}
