import QtQuick
import Vantora.Controls

/// The motion of what changes by itself, as results do; the owner says how long it takes.
NumberAnimation {
    easing.type: Easing.BezierSpline
    easing.bezierCurve: Motion.easeInOut
}
