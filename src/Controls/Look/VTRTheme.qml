pragma Singleton

import QtQuick

/// The named colours, the font families, the text styles and the metrics that several controls
/// share; a size that only one view has stands there. The window has a dark look only.
QtObject {
    id: theme

    readonly property color vtrRed: Qt.rgba(0.91, 0.1, 0.2, 1)
    readonly property color vtrRedDark: Qt.rgba(0.78, 0.06, 0.18, 1)
    readonly property color vtrRedGlow: Qt.rgba(0.91, 0.1, 0.2, 0.35)
    readonly property color background: Qt.rgba(0.043, 0.059, 0.098, 1)
    readonly property color cardBg: Qt.rgba(0.075, 0.102, 0.165, 1)
    readonly property color cardBgLight: Qt.rgba(0.098, 0.133, 0.22, 1)
    readonly property color cardBorder: Qt.rgba(1, 1, 1, 0.08)
    readonly property color textPrimary: Qt.rgba(1, 1, 1, 1)
    readonly property color textSecondary: Qt.rgba(1, 1, 1, 0.7)
    readonly property color textMuted: Qt.rgba(1, 1, 1, 0.45)
    readonly property color bestGreen: Qt.rgba(0.06, 0.72, 0.51, 1)
    readonly property color gold: Qt.rgba(0.96, 0.62, 0.04, 1)
    readonly property color blue: Qt.rgba(0.23, 0.51, 0.96, 1)

    /// The colours between which a linear gradient runs.
    component ThemeGradient: QtObject {
        required property color start
        required property color end
    }

    // Gradients run from the top left to the bottom right.
    readonly property ThemeGradient redGradient: ThemeGradient {
        start: theme.vtrRed
        end: theme.vtrRedDark
    }
    readonly property ThemeGradient darkCardGradient: ThemeGradient {
        start: theme.cardBg
        end: theme.withOpacity(theme.cardBgLight, 0.6)
    }

    // The embedded families (Inter, JetBrains Mono and Material Icons, see tools/make-fonts); the system's own on macOS.
    readonly property string fontFamily: Qt.platform.os === "osx" ? ".AppleSystemUIFont" : "Vantora Sans"
    readonly property string monospacedFamily: Qt.platform.os === "osx" ? "Menlo" : "Vantora Mono"
    readonly property string symbolFamily: "Vantora Icons"

    // Sizes of the text styles; a headline is bold, the others regular.
    readonly property int titleSize: 22
    readonly property int headlineSize: 13
    readonly property int bodySize: 13
    readonly property int calloutSize: 12
    readonly property int captionSize: 10

    readonly property font bodyFont: Qt.font({ family: theme.fontFamily, pixelSize: theme.bodySize })

    readonly property int padding: 16
    readonly property int spacing: 8
    readonly property int cardRadius: 14
    readonly property int controlRadius: 8
    /// Opacity of results that remain after a failed request.
    readonly property real earlierOpacity: 0.55

    function withOpacity(base: color, opacity: real): color {
        return Qt.rgba(base.r, base.g, base.b, opacity);
    }
}
