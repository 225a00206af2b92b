pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// Chooses the airport of departure or of arrival: the table, filtered as one types. Choosing closes
/// the sheet and changes the search; closing it otherwise changes nothing.
Sheet {
    id: pickerSheet

    required property FlightSearchViewModel search
    required property bool choosesOrigin

    title: choosesOrigin ? "Kalkış Havalimanı Seçin" : "Varış Havalimanı Seçin"
    sheetWidth: 480
    sheetHeight: 520
    fill: VTRTheme.cardBg

    AirportPickerContent {
        sheet: pickerSheet
        selectedCode: pickerSheet.choosesOrigin ? pickerSheet.search.originCode : pickerSheet.search.destinationCode
        onChosen: code => {
            if (pickerSheet.choosesOrigin)
                pickerSheet.search.originCode = code;
            else
                pickerSheet.search.destinationCode = code;
            pickerSheet.close();
        }
    }
}
