import QtQuick
import QtQuick.Templates as T
import Vantora
import Vantora.Controls

/// The application's one window.
T.ApplicationWindow {
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
    visible: true
    color: VTRTheme.background

    menuBar: AppMenuBar {}

    TabOrder {
        window: window
    }

    TextTip {
        window: window
    }

    HeldKeys {
        window: window
    }

    Shortcut {
        sequences: ["Ctrl+Q", "Ctrl+W"]
        context: Qt.ApplicationShortcut
        onActivated: window.close()
    }

    MainView {
        id: mainView

        anchors.fill: parent
        focus: true
    }
}
