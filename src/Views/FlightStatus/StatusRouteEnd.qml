import QtQuick
import Vantora
import Vantora.Controls

/// One end of the route: airport, city, the scheduled time and, when it differs, the expected one.
Column {
    id: end

    required property string code
    required property string city
    required property string scheduled
    required property string estimated
    /// Text.AlignLeft or Text.AlignRight.
    property int alignment: Text.AlignLeft
    readonly property string estimateText: FlightStatusFormat.estimateText(scheduled, estimated)

    // The server may name an airport where it should give a code, so each line keeps to its width.
    component Line: PlainText {
        anchors.left: parent.left
        anchors.right: parent.right
        elide: Text.ElideRight
    }

    spacing: 4

    Line {
        text: end.code
        horizontalAlignment: end.alignment
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 14
        font.pixelSize: 24
        font.weight: Font.ExtraBold
    }

    Line {
        text: end.city
        horizontalAlignment: end.alignment
        wrapMode: Text.Wrap
        maximumLineCount: 2
        color: VTRTheme.textMuted
    }

    Line {
        text: end.scheduled
        horizontalAlignment: end.alignment
        font.pixelSize: 14
        font.weight: Font.Bold
    }

    Line {
        visible: end.estimateText.length > 0
        text: end.estimateText
        horizontalAlignment: end.alignment
        color: VTRTheme.gold
        font.pixelSize: 12
        font.weight: Font.DemiBold
    }
}
