import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// The top of the window: logo, the buttons of the two sheets, and where the data comes from.
RowLayout {
    id: header

    signal flightStatusRequested
    signal cityGuideRequested

    spacing: 12

    RedSurface {
        Layout.preferredWidth: 36
        Layout.preferredHeight: 36
        radius: 10
        raised: false

        Symbol {
            anchors.centerIn: parent
            name: "airplane"
            size: 18
        }
    }

    Column {
        Layout.fillWidth: true
        spacing: 1

        PlainText {
            text: "VANTORA"
            font.pixelSize: 14
            font.weight: Font.Black
            font.letterSpacing: 0.5
        }

        PlainText {
            text: "Cheapest Flight Finder • Native macOS"
            font.pixelSize: 11
            color: VTRTheme.textMuted
        }
    }

    Button {
        objectName: "flightStatusButton"
        icon.name: "clock.arrow.circlepath"
        text: "Uçuş Durumu"
        onClicked: header.flightStatusRequested()
    }

    Button {
        objectName: "cityGuideButton"
        icon.name: "map"
        text: "Şehir Rehberi"
        onClicked: header.cityGuideRequested()
    }

    Row {
        spacing: 6
        Layout.leftMargin: 4

        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            width: 7
            height: 7
            radius: 3.5
            color: VTRTheme.bestGreen
            antialiasing: true
        }

        PlainText {
            text: "Canlı MCP API"
            font.pixelSize: 11
            color: VTRTheme.textSecondary
        }
    }
}
