import QtQuick
import QtQuick.Templates as T

/// A slim one that is seen while there is something to scroll.
T.ScrollBar {
    id: bar

    visible: size < 1
    implicitWidth: 12
    implicitHeight: 12
    padding: 3
    minimumSize: 0.04
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        antialiasing: true
        color: Qt.rgba(1, 1, 1, bar.pressed ? 0.4 : bar.hovered ? 0.3 : 0.16)
    }
}
