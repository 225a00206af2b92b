import QtQuick

/// The drawing half of PlainText, whose `text` hides the one that is drawn here.
Text {
    property string shownText

    text: shownText
    textFormat: Text.PlainText
}
