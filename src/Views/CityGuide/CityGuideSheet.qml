pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The guide of the search's destination and the airline's promotions, on two tabs. Every opening
/// loads them anew, for the destination of that moment.
Sheet {
    id: guideSheet

    required property FlightSearchViewModel search

    objectName: "cityGuideSheet"
    title: "Destinasyon Rehberi & Fırsatlar"
    sheetWidth: 560
    sheetHeight: 500

    CityGuideContent {
        sheet: guideSheet
        destinationCode: guideSheet.search.destinationCode
    }
}
