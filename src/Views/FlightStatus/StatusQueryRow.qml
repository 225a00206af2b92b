import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The question: a flight number, a day and the button that asks.
RowLayout {
    id: row

    required property FlightStatusViewModel viewModel

    spacing: VTRTheme.spacing

    // The number that stands there is an example: typing replaces it.
    Component.onCompleted: {
        number.focus = true;
        number.selectAll();
    }

    TextField {
        id: number

        Layout.fillWidth: true
        Layout.fillHeight: true
        Accessible.name: "Uçuş numarası"
        symbol: "ticket"
        placeholderText: "Uçuş No (örn: VQ1983)"
        font.pixelSize: 14
        font.weight: Font.Bold
        text: row.viewModel.flightNumber
        onTextChanged: row.viewModel.flightNumber = text
        onAccepted: if (!row.viewModel.isLoading) row.viewModel.startSearchStatus()
    }

    DateField {
        objectName: "statusDateField"
        Layout.preferredWidth: 196
        Layout.fillHeight: true
        label: "Uçuş günü"
        fill: VTRTheme.cardBg
        value: row.viewModel.flightDate
        onEdited: value => row.viewModel.flightDate = value
    }

    BusyButton {
        objectName: "statusQueryButton"
        Layout.fillHeight: true
        horizontalPadding: 16
        verticalPadding: 9
        radius: 6
        isRaised: false
        icon.name: "magnifyingglass"
        text: "Sorgula"
        font.pixelSize: 13
        busy: row.viewModel.isLoading
        onClicked: row.viewModel.startSearchStatus()
    }
}
