import QtQuick
import Vantora.Controls

/// A symbol of the design, by its name. It decorates and is hidden from assistive technology.
Item {
    id: symbol

    required property string name
    property int size: VTRTheme.bodySize
    property color color: VTRTheme.textPrimary

    readonly property var look: SymbolCatalogue.symbols[name]
    readonly property bool isCircled: look.isCircled ?? false
    readonly property bool isDisc: look.isDisc ?? false
    // Glyphs of the icon font fill their em square less than the design's symbols fill theirs.
    readonly property int glyphSize: isCircled || isDisc ? Math.round(size * 0.72) : Math.round(size * 1.2)

    implicitWidth: isCircled || isDisc ? Math.round(size * 1.2) : glyphSize
    implicitHeight: implicitWidth
    Accessible.ignored: true

    Rectangle {
        anchors.fill: parent
        visible: symbol.isCircled || symbol.isDisc
        radius: width / 2
        color: symbol.isDisc ? symbol.color : "transparent"
        border.width: symbol.isCircled ? Math.max(1, Math.round(symbol.size / 14)) : 0
        border.color: symbol.color
        antialiasing: true
    }

    PlainTextBase {
        anchors.centerIn: parent
        shownText: symbol.look.character
        rotation: symbol.look.rotation ?? 0
        color: symbol.isDisc ? VTRTheme.textPrimary : symbol.color
        // One size for all: for each size of a font Qt asks the system, in each of two threads.
        scale: symbol.glyphSize / font.pixelSize
        font.family: VTRTheme.symbolFamily
        font.pixelSize: 24
        font.weight: Font.Normal
    }
}
