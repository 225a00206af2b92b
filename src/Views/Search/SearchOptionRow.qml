import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// Trip type, cabin, calendar window and passengers.
RowLayout {
    id: row

    required property FlightSearchViewModel viewModel

    spacing: 12

    SegmentedControl {
        objectName: "tripType"
        Layout.preferredWidth: Math.max(220, implicitWidth)
        label: "Yolculuk türü"
        titles: SearchChoices.tripTypes
        currentIndex: row.viewModel.tripType
        onChosen: index => row.viewModel.tripType = index
    }

    PopUpMenu {
        objectName: "cabinClass"
        Layout.preferredWidth: Math.max(140, implicitWidth)
        label: "Kabin"
        titles: SearchChoices.cabinClasses
        currentIndex: row.viewModel.cabinClass
        onActivated: index => row.viewModel.cabinClass = index
    }

    PopUpMenu {
        objectName: "timeRange"
        Layout.preferredWidth: Math.max(150, implicitWidth)
        label: "Takvim aralığı"
        titles: SearchChoices.timeRanges
        currentIndex: row.viewModel.timeRange
        onActivated: index => row.viewModel.timeRange = index
    }

    PopUpMenu {
        objectName: "passengers"
        Layout.preferredWidth: Math.max(110, implicitWidth)
        label: "Yolcu sayısı"
        titles: ["1 Yetişkin", "2 Yetişkin", "3 Yetişkin", "4 Yetişkin"]
        currentIndex: row.viewModel.passengers - 1
        onActivated: index => row.viewModel.passengers = index + 1
    }

    Item { Layout.fillWidth: true }
}
