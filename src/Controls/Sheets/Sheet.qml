import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Vantora.Controls

/// A modal sheet over the dimmed window, with its title, a close button and its content. It is made anew
/// for every opening (see SheetLoader). The item in it that has `focus: true` gets the keyboard first,
/// Tab stays within the sheet, and closing gives the keyboard back to where it was.
///
/// Escape and the header's button close it. A click beside it does not: it would throw away what
/// was typed for a slip of the pointer. It is as large as its implicit size and the window allow.
T.Dialog {
    id: sheet

    property color fill: VTRTheme.background
    /// Before the title; empty for none.
    property string symbol
    property alias hasDivider: divider.visible
    /// Stands in the header, below the title.
    property alias headerContent: extension.data
    default property alias sheetContent: body.data
    /// Takes the keys that the controls leave alone.
    property Item keyTarget: null

    /// How far below its place the sheet is, while it comes and goes.
    property real verticalOffset: 0

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: (parent ? Math.round((parent.height - height) / 2) : 0) + verticalOffset
    // Said in full: a popup without a width is fitted to the window by Qt, which moves it again.
    width: implicitWidth
    height: parent ? Math.min(implicitHeight, parent.height - 2 * VTRTheme.padding) : implicitHeight
    padding: 0
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape

    onAboutToShow: focusReturn.remember(parent.Window.window.activeFocusItem)
    onClosed: focusReturn.restore()

    background: RoundedSurface {
        radius: VTRTheme.cardRadius
        color: sheet.fill
        borderColor: VTRTheme.cardBorder
        borderWidth: 0.5
        shadowColor: Qt.rgba(0, 0, 0, 0.5)
        shadowRadius: 30
        shadowOffset: 12
    }
    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
        Keys.forwardTo: sheet.keyTarget ? [sheet.keyTarget] : []
    }

    T.Overlay.modal: Rectangle {
        color: Qt.rgba(0, 0, 0, 0.55)

        Behavior on opacity {
            NumberAnimation { duration: Motion.SheetDuration }
        }
    }

    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Motion.SheetDuration }
        NumberAnimation {
            property: "verticalOffset"
            from: 14
            to: 0
            duration: Motion.SheetDuration
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation { property: "opacity"; to: 0; duration: Motion.SheetDuration }
        NumberAnimation {
            property: "verticalOffset"
            to: 14
            duration: Motion.SheetDuration
            easing.type: Easing.InCubic
        }
    }

    FocusReturn {
        id: focusReturn
    }

    // The lighter ground of the header, with the sheet's own corners at the top and none below.
    Item {
        width: parent.width
        height: header.height + 2 * VTRTheme.padding
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
        anchors.fill: parent
        spacing: 0

        ColumnLayout {
            id: header

            Layout.margins: VTRTheme.padding
            spacing: 12

            RowLayout {
                spacing: VTRTheme.spacing

                Symbol {
                    visible: sheet.symbol.length > 0
                    name: sheet.symbol
                    size: VTRTheme.titleSize
                    color: VTRTheme.vtrRed
                }
                PlainText {
                    Layout.fillWidth: true
                    text: sheet.title
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
                    onClicked: sheet.close()
                }
            }
            ColumnLayout {
                id: extension

                visible: children.length > 0
                spacing: 0
            }
        }

        Divider {
            id: divider

            Layout.fillWidth: true
            visible: false
        }

        Item {
            id: body

            Layout.fillWidth: true
            Layout.fillHeight: true
        }
    }
}
