import QtQuick
import Vantora.Controls

/// A list for assistive technology around a view of rows: see SpokenRows.
SpokenRows {
    /// What the list holds.
    required property string label

    Accessible.role: Accessible.List
    Accessible.name: label
}
