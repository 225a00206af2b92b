pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// Asks for the live status of one flight. Every opening starts with a state of its own.
Sheet {
    id: statusSheet

    objectName: "flightStatusSheet"
    title: "Canlı Uçuş Durumu Takibi"
    sheetWidth: 580
    sheetHeight: 480

    FlightStatusContent {
        sheet: statusSheet
    }
}
