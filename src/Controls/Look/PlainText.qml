import QtQuick
import Vantora.Controls

/// The only text component that views use. It never reads markup, so that a text from the server
/// stays a text, and it draws `text` only as far as a person would read it. Assistive
/// technology reads it, unless it is `Accessible.ignored` or part of a control or a list.
CutText {
    property string text

    shownText: ShownText.of(text, wrapMode === Text.NoWrap, fontSizeMode !== Text.FixedSize)
    color: VTRTheme.textPrimary
    font.family: VTRTheme.fontFamily
    font.pixelSize: VTRTheme.bodySize
    Accessible.role: Accessible.StaticText
    Accessible.name: shownText
}
