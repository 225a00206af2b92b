pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The guide of a destination and the airline's promotions, on two tabs. Every opening loads them
/// anew, for the destination of that moment.
Sheet {
    id: guideSheet

    required property string destinationCode

    title: "Destinasyon Rehberi & Fırsatlar"
    sheetWidth: 560
    sheetHeight: 500

    CityGuideContent {
        sheet: guideSheet
        destinationCode: guideSheet.destinationCode
    }
}
