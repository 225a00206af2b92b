pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The place of the error banner in the page. The banner keeps its message while it leaves.
FoldingSlot {
    id: slot

    required property FlightSearchViewModel viewModel
    property string message
    readonly property real bannerTop: topInPage + gap

    isOpen: viewModel.hasErrorMessage

    readonly property Connections news: Connections {
        target: slot.viewModel

        function onErrorMessageChanged() {
            if (slot.viewModel.hasErrorMessage)
                slot.message = slot.viewModel.errorMessage;
        }
    }

    ErrorBanner {
        width: slot.width
        text: slot.message
    }
}
