import QtQuick
import Vantora.Controls

/// The only text component that views use: it never reads markup, so that a text from the server
/// stays a text.
Text {
    textFormat: Text.PlainText
    color: VTRTheme.textPrimary
    font.family: VTRTheme.fontFamily
    font.pixelSize: VTRTheme.bodySize
}
