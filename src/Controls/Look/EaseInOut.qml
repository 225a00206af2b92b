import QtQuick
import Vantora.Controls

/// The motion of what changes by itself, as results do; the owner says how long it takes.
NumberAnimation {
    easing.type: Easing.BezierSpline
    easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1]
}
