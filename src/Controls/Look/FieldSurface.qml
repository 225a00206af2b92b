import QtQuick
import Vantora.Controls

/// The background of everything one types or chooses in; its implicit height is that of every field.
RoundedSurface {
    implicitHeight: 36
    radius: VTRTheme.controlRadius
    color: VTRTheme.cardBgLight
    borderColor: VTRTheme.cardBorder
    borderWidth: 1
}
