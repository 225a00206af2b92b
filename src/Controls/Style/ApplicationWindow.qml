import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A window in which the style's rules hold: a held key acts once, Tab goes on from a control that
/// was disabled, a tool tip shows what is cut short, and assistive technology has what a user can
/// reach.
T.ApplicationWindow {
    id: window

    readonly property alias isAltHeld: keys.isAltHeld
    readonly property alias toolTip: tip

    color: VTRTheme.background

    // Installs the interfaces for assistive technology, before the first item is made.
    AccessibleTree {}

    WindowKeys {
        id: keys

        window: window
        onActed: tip.hide()
    }

    ToolTip {
        id: tip
    }
}
