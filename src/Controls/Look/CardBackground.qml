import QtQuick
import Vantora.Controls

/// What every card lies on: fill, outline, continuous corners and shadow.
RoundedSurface {
    radius: VTRTheme.cardRadius
    color: VTRTheme.cardBg
    borderColor: VTRTheme.cardBorder
    // Of the one-point outline the card's clip leaves the inner half.
    borderWidth: 0.5
    shadowColor: Qt.rgba(0, 0, 0, 0.3)
    shadowRadius: 8
    shadowOffset: 4
}
