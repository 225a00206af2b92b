import QtQuick
import Vantora
import Vantora.Controls

/// The place of the fare chart in the page. The chart fades and slides in when a calendar with days
/// arrives, and out when one without any does.
Item {
    id: slot

    required property FlightSearchViewModel viewModel
    readonly property bool isOpen: viewModel.calendarPrices.count > 0
    /// 0 closed, 1 open.
    property real openness: isOpen ? 1 : 0

    implicitHeight: openness * chart.implicitHeight
    visible: openness > 0

    Behavior on openness {
        EaseInOut { duration: Motion.resultsDuration }
    }

    PriceCalendarView {
        id: chart

        y: (slot.openness - 1) * 24
        width: parent.width
        opacity: slot.openness
        enabled: slot.isOpen
        viewModel: slot.viewModel
    }
}
