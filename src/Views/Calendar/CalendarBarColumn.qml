import QtQuick
import Vantora
import Vantora.Controls

/// One day of the fare chart as a bar with its price, date and weekday.
BaseButton {
    id: column

    required property dailyPrice price
    required property bool isBest
    required property string currency
    required property double maxPrice
    required property bool isSelected

    readonly property real barHeight: PriceCalendarFormat.barHeight(price.amount, maxPrice)
    readonly property bool isHovered: hovered

    text: PriceCalendarFormat.spokenDay(price, currency, isSelected)
    Accessible.selectable: true
    Accessible.selected: isSelected
    topPadding: 6
    bottomPadding: 6
    leftPadding: 4
    rightPadding: 4

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: column.isSelected ? VTRTheme.cardBgLight
                                 : VTRTheme.withOpacity(VTRTheme.cardBgLight, column.isHovered ? 0.4 : 0)

        PressTint {
            control: column
            isHovered: false
            radius: column.cornerRadius
        }
    }

    contentItem: Column {
        spacing: 6

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.wholeAmount(column.price.amount)
            font.pixelSize: 10
            font.weight: Font.Bold
            color: column.isBest ? VTRTheme.bestGreen
                                 : column.isSelected ? VTRTheme.vtrRed : VTRTheme.textSecondary
        }

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 24
            height: 100

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: VTRTheme.withOpacity(VTRTheme.cardBgLight, 0.4)
                antialiasing: true
            }

            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: column.barHeight
                radius: Math.min(width, height) / 2
                antialiasing: true
                gradient: Gradient {
                    GradientStop {
                        position: 0
                        color: column.isBest ? VTRTheme.bestGreen
                                             : column.isSelected ? VTRTheme.vtrRed : Qt.rgba(0.22, 0.3, 0.46, 1)
                    }
                    GradientStop {
                        position: 1
                        color: column.isBest ? Qt.rgba(0.04, 0.55, 0.38, 1)
                                             : column.isSelected ? VTRTheme.vtrRedDark : Qt.rgba(0.15, 0.2, 0.32, 1)
                    }
                }

                Behavior on height {
                    NumberAnimation {
                        duration: Motion.resultsDuration
                        easing.type: Easing.BezierSpline
                        easing.bezierCurve: Motion.easeInOut
                    }
                }
            }

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: "transparent"
                visible: column.isSelected || column.isHovered
                border.width: 2
                border.color: column.isSelected ? VTRTheme.vtrRed : Qt.rgba(1, 1, 1, 0.4)
                antialiasing: true
            }
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.formatDateShort(column.price.date)
            font.pixelSize: 11
            font.weight: Font.Bold
            color: VTRTheme.textPrimary
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            text: PriceCalendarFormat.formatDayOfWeek(column.price.date, false)
            font.pixelSize: 9
            color: VTRTheme.textMuted
        }
    }
}
