import QtQuick

/// The Text that PlainText, whose `text` hides the one that is drawn, and Symbol draw with. It never reads
/// markup.
Text {
    property string shownText

    text: shownText
    textFormat: Text.PlainText
}
