import QtQuick
import Vantora
import Vantora.Controls

/// The day of departure and, for a round trip, the day of return.
Row {
    id: row

    required property FlightSearchViewModel viewModel

    // The name of the field under it.
    component Caption: PlainText {
        Accessible.ignored: true
        font.pixelSize: 11
        font.weight: Font.Bold
        color: VTRTheme.textMuted
    }

    spacing: 12

    Column {
        spacing: 6

        Caption { text: "Gidiş Tarihi" }

        DateField {
            objectName: "departureDate"
            width: 250
            label: "Gidiş Tarihi"
            value: row.viewModel.departureDate
            onEdited: value => row.viewModel.departureDate = value
        }
    }

    Column {
        visible: row.viewModel.isRoundTrip
        spacing: 6

        Caption { text: "Dönüş Tarihi" }

        DateField {
            objectName: "returnDate"
            width: 250
            label: "Dönüş Tarihi"
            value: row.viewModel.returnDate
            dimmedBefore: row.viewModel.departureDate
            onEdited: value => row.viewModel.returnDate = value
        }
    }
}
