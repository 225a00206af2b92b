pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// A choice of one among a few, side by side. It is one tab stop, within which the arrows choose.
/// The owner binds `currentIndex` and stores what `chosen` brings.
FieldSurface {
    id: control

    /// What is chosen here, for assistive technology.
    required property string label
    required property list<string> titles
    required property int currentIndex

    readonly property Item currentSegment: segments.count > 0 ? segments.itemAt(currentIndex) : null

    signal chosen(int index)

    implicitWidth: row.implicitWidth + 6
    Accessible.role: Accessible.Grouping
    Accessible.name: label
    onActiveFocusChanged: if (activeFocus) currentSegment.forceActiveFocus(Qt.OtherFocusReason)

    RoundedSurface {
        x: row.x + (control.currentSegment ? control.currentSegment.x : 0)
        y: row.y
        width: control.currentSegment ? control.currentSegment.width : 0
        height: row.height
        radius: VTRTheme.controlRadius - 2
        color: VTRTheme.vtrRed

        Behavior on x {
            enabled: control.visible
            NumberAnimation { duration: Motion.hoverDuration; easing.type: Easing.OutCubic }
        }
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 3
        spacing: 2

        Repeater {
            id: segments

            model: control.titles

            ChoiceButton {
                id: segment

                required property string modelData

                choices: segments
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumWidth: implicitWidth
                Layout.preferredWidth: 1
                horizontalPadding: 10
                cornerRadius: VTRTheme.controlRadius - 2
                text: modelData
                isCurrent: index === control.currentIndex
                onClicked: control.chosen(index)

                background: Item {
                    PressTint {
                        control: segment
                        radius: segment.cornerRadius
                    }
                }
                contentItem: PlainText {
                    text: segment.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    font.weight: segment.isCurrent ? Font.DemiBold : Font.Medium
                    color: segment.isCurrent ? VTRTheme.textPrimary : VTRTheme.textSecondary
                }
            }
        }
    }
}
