import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora

/// The question: a flight number, a day and the button that asks.
RowLayout {
    id: row

    required property FlightStatusViewModel viewModel

    spacing: VTRTheme.spacing

    T.TextField {
        id: number

        objectName: "flightNumberField"
        Layout.fillWidth: true
        Layout.fillHeight: true
        padding: 10
        implicitHeight: contentHeight + 20
        focus: true
        font.pixelSize: 14
        font.weight: Font.Bold
        color: VTRTheme.textPrimary
        text: row.viewModel.flightNumber
        placeholderText: "Uçuş No (örn: VQ1983)"
        Accessible.name: "Uçuş numarası"
        onTextEdited: row.viewModel.flightNumber = text
        onAccepted: row.viewModel.startSearchStatus()
        Component.onCompleted: selectAll()
        background: RoundedSurface {
            radius: 8
            color: VTRTheme.cardBg
        }
    }

    DateField {
        objectName: "flightDateField"
        Layout.preferredWidth: 196
        Layout.fillHeight: true
        label: "Uçuş günü"
        fill: VTRTheme.cardBg
        value: row.viewModel.flightDate
        onEdited: value => row.viewModel.flightDate = value
    }

    QueryButton {
        objectName: "statusQueryButton"
        Layout.fillHeight: true
        isLoading: row.viewModel.isLoading
        onClicked: row.viewModel.startSearchStatus()
    }
}
