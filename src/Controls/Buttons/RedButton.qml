import QtQuick
import Vantora.Controls

/// A button in the airline's red; its content is the caller's.
BaseButton {
    id: button

    property bool raised: true
    property real shadowRadius: 6
    property real shadowOffset: 2
    /// A button that works is paler.
    property real groundOpacity: 1

    background: RedSurface {
        opacity: button.groundOpacity
        radius: button.cornerRadius
        raised: button.raised
        shadowRadius: button.shadowRadius
        shadowOffset: button.shadowOffset

        PressTint {
            control: button
            radius: button.cornerRadius
        }
    }
}
