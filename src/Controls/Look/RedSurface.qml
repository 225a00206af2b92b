import QtQuick
import Vantora.Controls

/// The airline's red: its mark, and the buttons that matter most.
RoundedSurface {
    /// It casts the red shadow.
    property bool raised: true

    color: VTRTheme.redGradient.start
    gradientEnd: VTRTheme.redGradient.end
    shadowColor: VTRTheme.withOpacity(VTRTheme.vtrRed, raised ? 0.4 : 0)
    shadowRadius: 6
    shadowOffset: 2
}
