pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// It turns only while it is visible. Assistive technology ignores it: what is going on stands beside
/// it.
T.BusyIndicator {
    id: busyIndicator

    property color color: VTRTheme.textSecondary

    implicitWidth: 24
    implicitHeight: implicitWidth
    Accessible.ignored: true

    contentItem: Item {
        Repeater {
            model: 8
            delegate: Spoke {
                size: busyIndicator.width
                color: busyIndicator.color
            }
        }

        RotationAnimator on rotation {
            running: busyIndicator.visible && busyIndicator.running
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
        }
    }

    component Spoke: Rectangle {
        id: spoke

        required property int index
        required property real size

        x: size / 2 - width / 2
        width: Math.max(2, size * 0.1)
        height: size * 0.3
        radius: width / 2
        opacity: 0.2 + 0.8 * index / 7
        antialiasing: true
        transform: Rotation {
            origin.x: spoke.width / 2
            origin.y: spoke.size / 2
            angle: spoke.index * 45
        }
    }
}
