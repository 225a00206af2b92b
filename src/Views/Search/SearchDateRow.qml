import QtQuick
import Vantora
import Vantora.Controls

/// The day of departure and, for a round trip, the day of return.
Row {
    id: row

    required property FlightSearchViewModel viewModel

    /// The caption is the name of the field under it.
    component Captioned: Column {
        id: captioned

        required property string caption

        spacing: 6

        PlainText {
            Accessible.ignored: true
            text: captioned.caption
            font.pixelSize: 11
            font.weight: Font.Bold
            color: VTRTheme.textMuted
        }
    }

    spacing: 12

    Captioned {
        id: departure

        caption: "Gidiş Tarihi"

        DateField {
            objectName: "departureDate"
            width: 250
            label: departure.caption
            value: row.viewModel.departureDate
            onEdited: value => row.viewModel.departureDate = value
        }
    }

    Captioned {
        id: wayBack

        visible: row.viewModel.isRoundTrip
        caption: "Dönüş Tarihi"

        DateField {
            objectName: "returnDate"
            width: 250
            label: wayBack.caption
            value: row.viewModel.returnDate
            dimmedBefore: row.viewModel.departureDate
            onEdited: value => row.viewModel.returnDate = value
        }
    }
}
