import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// The error at the edge of the view, while the page is scrolled away from its banner. Pressed, it
/// asks for the banner. Assistive technology reads the message there.
Button {
    id: strip

    required property string message
    required property bool hasError
    required property bool isBannerAbove
    required property bool isBannerBelow
    property bool isDismissed: false
    readonly property bool isShown: hasError && (isBannerAbove || isBannerBelow) && !isDismissed
    /// 0 out of sight, 1 in place.
    property real presence: isShown ? 1 : 0

    y: 12 - (1 - presence) * (height + 12)
    visible: presence > 0
    enabled: isShown
    opacity: presence
    text: "Hataya git"
    onHasErrorChanged: isDismissed = false
    radius: 10
    leftPadding: VTRTheme.padding
    rightPadding: 8
    topPadding: 8
    bottomPadding: 8

    Behavior on presence {
        EaseInOut { duration: Motion.ResultsDuration }
    }

    background: RoundedSurface {
        radius: strip.radius
        color: VTRTheme.cardBgLight
        borderWidth: 1
        borderColor: VTRTheme.withOpacity(VTRTheme.gold, 0.5)
        shadowColor: Qt.rgba(0, 0, 0, 0.5)
        shadowRadius: 16
        shadowOffset: 6

        PressTint { control: strip }
    }

    contentItem: RowLayout {
        spacing: 10

        Symbol {
            name: "exclamationmark.triangle.fill"
            size: 14
            color: VTRTheme.gold
        }
        PlainText {
            Layout.fillWidth: true
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            text: strip.message
            Accessible.ignored: true
        }
        Symbol {
            name: strip.isBannerBelow ? "chevron.down" : "chevron.up"
            size: 16
            color: VTRTheme.textSecondary
        }
        ToolButton {
            icon.name: "xmark.circle.fill"
            icon.color: VTRTheme.textMuted
            text: "Hatayı gizle"
            onClicked: strip.isDismissed = true
        }
    }
}
