pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora.Controls

/// A choice of one among a few texts, side by side. It is one tab stop, within which the arrows
/// choose. `Accessible.name` says what is chosen here.
FieldSurface {
    id: control

    required property list<string> model
    required property int currentIndex
    readonly property Item currentSegment: segments.count > 0 ? segments.itemAt(currentIndex) : null

    /// The user has chosen. The owner stores the index and binds `currentIndex`.
    signal activated(int index)

    implicitWidth: row.implicitWidth + 6
    Accessible.role: Accessible.Grouping
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
            NumberAnimation { duration: Motion.HoverDuration; easing.type: Easing.OutCubic }
        }
    }

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.margins: 3
        spacing: 2

        Repeater {
            id: segments

            model: control.model

            RadioButton {
                id: segment

                required property int index
                required property string modelData

                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.minimumWidth: implicitWidth
                Layout.preferredWidth: 1
                horizontalPadding: 10
                verticalPadding: 0
                radius: VTRTheme.controlRadius - 2
                text: modelData
                checked: index === control.currentIndex
                onClicked: control.activated(index)

                background: Item {
                    PressTint {
                        control: segment
                        radius: segment.radius
                    }
                }
                contentItem: PlainText {
                    text: segment.text
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    font.weight: segment.checked ? Font.DemiBold : Font.Medium
                    color: segment.checked ? VTRTheme.textPrimary : VTRTheme.textSecondary
                }
            }
        }
    }
}
