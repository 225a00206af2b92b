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
        Accessible.name: "Yolculuk türü"
        model: SearchChoices.tripTypes
        currentIndex: row.viewModel.tripType
        onActivated: index => row.viewModel.tripType = index
    }

    ComboBox {
        objectName: "cabinClass"
        Layout.preferredWidth: Math.max(140, implicitWidth)
        Accessible.name: "Kabin"
        model: SearchChoices.cabinClasses
        currentIndex: row.viewModel.cabinClass
        onActivated: index => row.viewModel.cabinClass = index
    }

    ComboBox {
        objectName: "timeRange"
        Layout.preferredWidth: Math.max(150, implicitWidth)
        Accessible.name: "Takvim aralığı"
        model: SearchChoices.timeRanges
        currentIndex: row.viewModel.timeRange
        onActivated: index => row.viewModel.timeRange = index
    }

    ComboBox {
        objectName: "passengers"
        Layout.preferredWidth: Math.max(110, implicitWidth)
        Accessible.name: "Yolcu sayısı"
        model: ["1 Yetişkin", "2 Yetişkin", "3 Yetişkin", "4 Yetişkin"]
        currentIndex: row.viewModel.passengers - 1
        onActivated: index => row.viewModel.passengers = index + 1
    }

    Item { Layout.fillWidth: true }
}
