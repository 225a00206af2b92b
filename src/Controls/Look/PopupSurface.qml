import QtQuick
import Vantora.Controls

/// The background of what drops from a field: a menu, a month.
RoundedSurface {
    radius: 10
    color: VTRTheme.cardBgLight
    borderColor: Qt.lighter(VTRTheme.cardBgLight, 1.5)
    borderWidth: 1
    shadowColor: Qt.rgba(0, 0, 0, 0.45)
    shadowRadius: 20
    shadowOffset: 8
}
