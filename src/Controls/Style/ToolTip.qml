import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// A text beside an item, under the pointer or with the keyboard, for what the item's look does not
/// say. One serves a window. Assistive technology has whole texts anyway.
T.ToolTip {
    id: tip

    readonly property real gap: 6

    /// Shows, after a short rest, what an item and those in it, but for controls, say in their properties
    /// `toolTip`; or hides it again.
    function showFor(item: Item, isWanted: bool) {
        if (isWanted || item === parent)
            hide();
        const texts = isWanted ? textsIn(item) : [];
        if (texts.length === 0)
            return;
        parent = item;
        show(texts.join("\n"));
    }

    function textsIn(item: Item): var {
        const own = (item as PlainText)?.toolTip || (item as ToolButton)?.toolTip;
        const shown = Array.from(item.children).filter(child => child.visible && !child.activeFocusOnTab);
        return shown.reduce((texts, child) => texts.concat(textsIn(child)), own ? [own] : []);
    }

    x: 0
    y: {
        const below = parent ? parent.height + gap : 0;
        const isInWindow = parent && parent.mapToItem(null, 0, below + height).y <= parent.Window.height;
        return isInWindow ? below : -height - gap;
    }
    implicitWidth: contentWidth + leftPadding + rightPadding
    implicitHeight: contentHeight + topPadding + bottomPadding
    margins: gap
    horizontalPadding: 10
    verticalPadding: 7
    delay: 500

    background: RoundedSurface {
        radius: 6
        color: Qt.lighter(VTRTheme.cardBgLight, 1.35)
        borderColor: Qt.rgba(1, 1, 1, 0.16)
        borderWidth: 1
        shadowColor: Qt.rgba(0, 0, 0, 0.45)
        shadowRadius: 12
        shadowOffset: 4
    }
    contentItem: PlainText {
        wrapMode: Text.Wrap
        maximumLineCount: 30
        text: tip.text
        font.pixelSize: VTRTheme.calloutSize
        Accessible.ignored: true
    }
    contentWidth: Math.min(Math.ceil(contentItem.implicitWidth), 480)
}
