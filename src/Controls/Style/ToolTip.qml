import QtQuick
import Vantora.Controls

/// The whole of a text that is cut short, beside the text, while the pointer rests on it or the
/// keyboard is on its control. One serves a window. Assistive technology has whole texts anyway.
RoundedSurface {
    id: tip

    required property Window window
    readonly property real gap: 6

    parent: finder.root
    // Over sheets and menus.
    z: 2000000
    visible: finder.text.length > 0
    x: Math.max(gap, Math.min(finder.place.x, (parent ? parent.width : 0) - width - gap))
    y: {
        const below = finder.place.y + finder.place.height + gap;
        return parent && below + height > parent.height ? Math.max(gap, finder.place.y - height - gap) : below;
    }
    width: label.width + 20
    height: label.height + 14
    radius: 6
    color: Qt.lighter(VTRTheme.cardBgLight, 1.35)
    borderColor: Qt.rgba(1, 1, 1, 0.16)
    borderWidth: 1
    shadowColor: Qt.rgba(0, 0, 0, 0.45)
    shadowRadius: 12
    shadowOffset: 4

    ToolTipFinder {
        id: finder

        window: tip.window
    }

    PlainText {
        id: label

        x: 10
        y: 7
        width: Math.min(Math.ceil(implicitWidth), 480)
        wrapMode: Text.Wrap
        maximumLineCount: 30
        text: finder.text
        font.pixelSize: VTRTheme.calloutSize
        Accessible.ignored: true
    }
}
