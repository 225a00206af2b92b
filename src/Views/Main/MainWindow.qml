import QtQuick
import Vantora
import Vantora.Controls

/// The application's one window, and its keys: those that work whatever has the keyboard.
/// `loadMainWindow` shows it.
ApplicationWindow {
    id: window

    readonly property FlightSearchViewModel viewModel: mainView.viewModel
    /// What the screen has free for the window.
    required property size room

    title: "Vantora"
    width: Math.min(1280, room.width)
    height: Math.min(860, room.height)
    // A smaller screen scrolls what is laid out for 1080 × 720.
    minimumWidth: Math.min(1080, room.width)
    minimumHeight: Math.min(720, room.height)

    menuBar: AppMenuBar {
        id: bar
    }

    MainView {
        id: mainView

        anchors.fill: parent
        focus: true

        // A sheet or an open menu has these keys to itself.
        Shortcut {
            sequences: ["F5", "Ctrl+R"]
            onActivated: {
                if (!window.viewModel.isLoading)
                    window.viewModel.startSearchAll();
            }
        }
        Shortcut {
            sequence: "F10"
            onActivated: bar.help.open()
        }
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        context: Qt.ApplicationShortcut
        onActivated: window.close()
    }
}
