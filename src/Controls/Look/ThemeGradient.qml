import QtQuick

/// The colours between which a linear gradient runs.
QtObject {
    required property color start
    required property color end
}
