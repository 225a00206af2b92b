import QtQuick
import Vantora.Controls

/// A hairline between two parts of a card or a sheet.
Rectangle {
    implicitHeight: 1
    color: VTRTheme.cardBorder
}
