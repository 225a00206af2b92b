import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// The application's one window.
T.ApplicationWindow {
    id: window

    readonly property FlightSearchViewModel viewModel: mainView.viewModel

    title: "Vantora"
    width: 1280
    height: 860
    minimumWidth: 1080
    minimumHeight: 720
    visible: true
    color: VTRTheme.background

    menuBar: AppMenuBar {}

    TabOrder {
        window: window
    }

    TextTip {
        window: window
    }

    MainView {
        id: mainView

        anchors.fill: parent
        focus: true
    }
}
