import QtQuick
import Vantora
import Vantora.Controls

/// One day of the fare chart as a bar with its price, date and weekday.
CalendarDay {
    id: column

    required property double maxPrice

    verticalPadding: 6
    horizontalPadding: 4

    background: RoundedSurface {
        radius: VTRTheme.controlRadius
        color: column.isSelected ? VTRTheme.cardBgLight
                                 : VTRTheme.withOpacity(VTRTheme.cardBgLight, column.isHovered ? 0.4 : 0)

        PressTint {
            control: column
            isHovered: false
        }
    }

    contentItem: Column {
        spacing: 6

        Line {
            objectName: "price"
            text: PriceCalendarFormat.wholeAmount(column.price.amount)
            font.pixelSize: 10
            font.weight: column.isSelected ? Font.ExtraBold : Font.Bold
            color: column.bestFirst(VTRTheme.bestGreen, VTRTheme.vtrRed, VTRTheme.textSecondary)
        }

        Item {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 24
            height: 100

            Capsule {
                anchors.fill: parent
                color: VTRTheme.withOpacity(VTRTheme.cardBgLight, 0.4)
            }

            // The software scene graph draws a rectangle's gradient with ragged edges.
            RoundedSurface {
                objectName: "bar"
                anchors.bottom: parent.bottom
                width: parent.width
                height: PriceCalendarFormat.barHeight(column.price.amount, column.maxPrice)
                radius: width / 2
                color: column.bestFirst(VTRTheme.bestGreen, VTRTheme.vtrRed, Qt.rgba(0.22, 0.3, 0.46, 1))
                gradientEnd: column.bestFirst(Qt.rgba(0.04, 0.55, 0.38, 1), VTRTheme.vtrRedDark, Qt.rgba(0.15, 0.2, 0.32, 1))
                gradientIsUpright: true

                Behavior on height {
                    EaseInOut { duration: Motion.ResultsDuration }
                }
            }

            Capsule {
                objectName: "outline"
                anchors.fill: parent
                color: "transparent"
                visible: column.isSelected || column.isHovered
                border.width: 2
                border.color: column.isSelected ? VTRTheme.vtrRed : Qt.rgba(1, 1, 1, 0.4)
            }
        }

        Line {
            text: PriceCalendarFormat.formatDateShort(column.price.date)
            font.pixelSize: 11
            font.weight: Font.Bold
        }

        Line {
            text: PriceCalendarFormat.formatDayOfWeek(column.price.date, false)
            font.pixelSize: 9
            color: VTRTheme.textMuted
        }
    }

    component Capsule: Rectangle {
        radius: Math.min(width, height) / 2
        antialiasing: true
    }

    component Line: PlainText {
        anchors.horizontalCenter: parent.horizontalCenter
    }
}
