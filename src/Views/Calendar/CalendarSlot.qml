pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The place of the fare chart in the page. The chart fades and slides in when a calendar with days
/// arrives, and out when one without any does.
FoldingSlot {
    id: slot

    required property FlightSearchViewModel viewModel

    isOpen: viewModel.calendarPrices.count > 0

    PriceCalendarView {
        width: slot.width
        viewModel: slot.viewModel
    }
}
