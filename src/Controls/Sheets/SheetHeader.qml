import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// The lighter head of a sheet: an optional symbol, the sheet's title and the close button.
/// Children stand below the title, on the same ground.
Item {
    id: header

    required property Sheet sheet
    property string symbol
    property color symbolColor: VTRTheme.vtrRed
    default property alias content: extension.data

    implicitHeight: rows.implicitHeight + 2 * VTRTheme.padding

    // The sheet's own corners at the top, none at the bottom.
    Item {
        anchors.fill: parent
        clip: true

        RoundedSurface {
            width: parent.width
            height: parent.height + 2 * radius
            radius: VTRTheme.cardRadius
            color: VTRTheme.cardBgLight
            borderColor: VTRTheme.cardBorder
            borderWidth: 0.5
        }
    }

    ColumnLayout {
        id: rows

        anchors.fill: parent
        anchors.margins: VTRTheme.padding
        spacing: 12

        RowLayout {
            spacing: VTRTheme.spacing

            Symbol {
                visible: header.symbol.length > 0
                name: header.symbol
                size: VTRTheme.titleSize
                color: header.symbolColor
            }
            PlainText {
                Layout.fillWidth: true
                text: header.sheet.title
                font.pixelSize: VTRTheme.headlineSize
                font.weight: Font.Bold
                elide: Text.ElideRight
                // It is the name of the sheet.
                Accessible.ignored: true
            }
            ToolButton {
                icon.name: "xmark.circle.fill"
                icon.width: VTRTheme.titleSize
                icon.color: VTRTheme.textMuted
                text: "Kapat"
                onClicked: header.sheet.close()
            }
        }
        ColumnLayout {
            id: extension

            visible: children.length > 0
            spacing: 0
        }
    }
}
