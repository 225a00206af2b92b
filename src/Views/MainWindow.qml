import QtQuick
import QtQuick.Controls.Basic
import Vantora

/// The application's one window.
ApplicationWindow {
    id: window

    title: "Vantora"
    width: 1280
    height: 860
    minimumWidth: 1080
    minimumHeight: 720
    visible: true
    color: VTRTheme.background

    MainView {
        anchors.fill: parent
    }
}
