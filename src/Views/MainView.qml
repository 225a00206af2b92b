import QtQuick
import Vantora

/// The content of the window.
FocusScope {
    id: mainView

    readonly property FlightSearchViewModel viewModel: FlightSearchViewModel {}

    Component.onCompleted: viewModel.startSearchAll()

    Column {
        anchors.centerIn: parent
        spacing: 8

        Symbol { name: "airplane.circle"; size: 44 }
        Symbol { name: "map.circle.fill"; size: 22; color: VTRTheme.vtrRed }
        GradientText {
            text: "En Ucuz Uçuşları"
            font.family: VTRTheme.fontFamily
            font.pixelSize: 26
            font.weight: Font.ExtraBold
            startColor: VTRTheme.redGradientStart
            endColor: VTRTheme.redGradientEnd
        }
        VTRCard {
            width: 300
            PlainText { text: mainView.viewModel.selectedDate; font.weight: Font.Black }
        }
        RoundedSurface {
            width: 200; height: 44; radius: 10
            color: VTRTheme.redGradientStart
            gradientEnd: VTRTheme.redGradientEnd
            shadowColor: VTRTheme.withOpacity(VTRTheme.vtrRed, 0.4)
            shadowRadius: 8
            shadowOffset: 3
        }
    }
}
