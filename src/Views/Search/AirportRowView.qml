import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// One airport of the picker.
ItemDelegate {
    id: row

    required property airport airport
    /// It is the airport chosen so far.
    required property bool isSelected
    /// The keyboard's choice: Return takes it.
    required property bool isMarked

    verticalPadding: 10
    leftPadding: 12
    rightPadding: 12

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: row.hovered || row.isMarked ? VTRTheme.cardBgLight : "transparent"
        borderWidth: row.isMarked ? 1 : 0
        borderColor: Qt.rgba(1, 1, 1, 0.16)

        PressTint {
            control: row
            isHovered: false
        }
    }

    contentItem: RowLayout {
        spacing: 12

        Tag {
            Layout.preferredWidth: 58
            text: row.airport.code
            color: row.isSelected ? VTRTheme.textPrimary : VTRTheme.textSecondary
            fill: row.isSelected ? VTRTheme.vtrRed : VTRTheme.cardBgLight
            size: 15
            cornerRadius: 6
            horizontalPadding: 8
            verticalPadding: 4
        }

        Column {
            Layout.fillWidth: true
            spacing: 2

            RowLayout {
                width: Math.min(implicitWidth, parent.width)
                spacing: VTRTheme.spacing

                PlainText {
                    Layout.fillWidth: true
                    elide: Text.ElideRight
                    text: row.airport.city + ", " + row.airport.country
                    font.pixelSize: 14
                    font.weight: Font.DemiBold
                    color: row.isSelected ? VTRTheme.vtrRed : VTRTheme.textPrimary
                }

                Tag {
                    visible: row.airport.hub
                    text: "HUB"
                    size: 9
                    horizontalPadding: 5
                }
            }

            PlainText {
                width: parent.width
                elide: Text.ElideRight
                text: row.airport.name
                font.pixelSize: 12
                color: VTRTheme.textMuted
            }
        }
    }
}
