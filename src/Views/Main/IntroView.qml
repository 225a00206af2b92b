import QtQuick
import Vantora.Controls

/// The introduction under the header.
Column {
    id: intro

    readonly property font headingFont: Qt.font({
        family: VTRTheme.fontFamily, pixelSize: 26, weight: Font.ExtraBold
    })

    spacing: VTRTheme.spacing

    Row {
        spacing: 8
        Accessible.role: Accessible.Heading
        Accessible.name: "Tarihlere Göre En Ucuz Uçuşları Keşfedin"

        PlainText {
            font: intro.headingFont
            text: "Tarihlere Göre"
        }

        GradientText {
            text: "En Ucuz Uçuşları"
            font: intro.headingFont
            startColor: VTRTheme.redGradient.start
            endColor: VTRTheme.redGradient.end
        }

        PlainText {
            font: intro.headingFont
            text: "Keşfedin"
        }
    }

    PlainText {
        width: parent.width
        wrapMode: Text.Wrap
        text: "Esnek tarihlerle fiyat grafiğini inceleyin, en uygun günleri yakalayın ve doğrudan VTR biletinizi alın."
        color: VTRTheme.textMuted
    }

    Row {
        spacing: 4

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "bolt.fill"
            size: 11
            color: VTRTheme.vtrRed
        }

        PlainText {
            text: "Powered by Vantora MCP Server"
            font.pixelSize: 11
            color: VTRTheme.textSecondary
        }
    }
}
