pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The search form. It edits the view model's form and starts searches; its own state is only which
/// of its two sheets is open.
VTRCard {
    id: searchCard

    required property FlightSearchViewModel viewModel
    property alias showOriginPicker: originPicker.isOpen
    property alias showDestinationPicker: destinationPicker.isOpen

    ColumnLayout {
        width: parent.width
        spacing: 16

        SearchOptionRow {
            Layout.fillWidth: true
            viewModel: searchCard.viewModel
        }

        RouteRow {
            Layout.fillWidth: true
            viewModel: searchCard.viewModel
            onOriginPressed: originPicker.isOpen = true
            onDestinationPressed: destinationPicker.isOpen = true
        }

        SearchDateRow {
            viewModel: searchCard.viewModel
        }

        BusyButton {
            objectName: "searchButton"
            icon.name: "magnifyingglass"
            text: "En Uygun Fiyatları Bul"
            busyText: "Aranıyor..."
            busy: searchCard.viewModel.isLoading
            onClicked: searchCard.viewModel.startSearchAll()
        }

        QuickRouteRow {
            viewModel: searchCard.viewModel
        }
    }

    SheetLoader {
        id: originPicker

        file: Qt.resolvedUrl("AirportPickerSheet.qml")
        values: ({ search: searchCard.viewModel, choosesOrigin: true })
    }

    SheetLoader {
        id: destinationPicker

        file: Qt.resolvedUrl("AirportPickerSheet.qml")
        values: ({ search: searchCard.viewModel, choosesOrigin: false })
    }
}
