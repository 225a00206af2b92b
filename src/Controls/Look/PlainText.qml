import QtQuick
import Vantora.Controls

/// The only text component that views use. It never reads markup, so that a text from the server
/// stays a text, and it draws `text` only as far as a person would read it. Assistive
/// technology reads it, unless it is `Accessible.ignored` or part of a control or a list.
PlainTextBase {
    id: plainText

    property string text
    /// What the pointer is told that rests on it: where it is cut short, the whole of it.
    property string toolTip: truncated ? text : ""

    shownText: ShownText.of(text, wrapMode === Text.NoWrap, fontSizeMode !== Text.FixedSize)
    color: VTRTheme.textPrimary
    font.family: VTRTheme.fontFamily
    font.pixelSize: VTRTheme.bodySize
    Accessible.role: Accessible.StaticText
    Accessible.name: shownText

    HoverHandler {
        enabled: plainText.toolTip.length > 0
        onHoveredChanged: (plainText.Window.window as ApplicationWindow)?.toolTip.showFor(plainText, hovered)
    }
}
