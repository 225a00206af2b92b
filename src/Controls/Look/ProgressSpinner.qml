pragma ComponentBehavior: Bound

import QtQuick
import Vantora.Controls

/// A progress indicator of unknown length. It turns only while it is seen. It is not told: what is
/// going on stands beside it.
Item {
    id: spinner

    property color color: VTRTheme.textSecondary
    property int size: 24

    implicitWidth: size
    implicitHeight: size

    Repeater {
        model: 8

        Rectangle {
            id: spoke

            required property int index

            x: spinner.width / 2 - width / 2
            y: 0
            width: Math.max(2, spinner.size * 0.1)
            height: spinner.size * 0.3
            radius: width / 2
            color: spinner.color
            opacity: 0.2 + 0.8 * spoke.index / 7
            antialiasing: true
            transform: Rotation {
                origin.x: spoke.width / 2
                origin.y: spinner.size / 2
                angle: spoke.index * 45
            }
        }
    }

    RotationAnimator on rotation {
        running: spinner.visible
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
    }
}
