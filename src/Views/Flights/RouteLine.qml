import QtQuick
import Vantora.Controls

/// The route of a flight: from a red dot over an aeroplane to a green one.
Row {
    component Dot: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 6
        height: 6
        radius: 3
        antialiasing: true
    }

    component Stretch: Rectangle {
        id: stretch

        required property color from
        required property color to

        anchors.verticalCenter: parent.verticalCenter
        width: 50
        height: 2
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: stretch.from }
            GradientStop { position: 1; color: stretch.to }
        }
    }

    Dot { color: VTRTheme.vtrRed }

    Stretch {
        from: VTRTheme.vtrRed
        to: Qt.rgba(1, 1, 1, 0.3)
    }

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        width: implicitWidth + 4
        name: "airplane"
        size: 11
        color: VTRTheme.textSecondary
    }

    Stretch {
        from: Qt.rgba(1, 1, 1, 0.3)
        to: VTRTheme.bestGreen
    }

    Dot { color: VTRTheme.bestGreen }
}
