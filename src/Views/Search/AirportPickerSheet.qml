pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// Chooses an airport: the table, filtered as one types. Choosing closes the sheet with `chosen`;
/// closing it otherwise changes nothing. `selectedCode` is the airport chosen so far.
Sheet {
    id: pickerSheet

    required property string selectedCode

    signal chosen(code: string)

    sheetWidth: 480
    sheetHeight: 520
    fill: VTRTheme.cardBg

    AirportPickerContent {
        sheet: pickerSheet
        selectedCode: pickerSheet.selectedCode
        onChosen: code => {
            pickerSheet.chosen(code);
            pickerSheet.close();
        }
    }
}
