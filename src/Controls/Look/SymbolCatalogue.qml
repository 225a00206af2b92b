pragma Singleton

import QtQml

/// Where the window's symbols are found in the icon font, under the names the design gives them.
QtObject {
    /// By name: the character that draws it, how far that is turned clockwise, in degrees, and whether
    /// it stands in an outlined circle or on a filled one.
    // Beside each the font's own name for it. Its aeroplane points up; the design's points right.
    readonly property var symbols: ({
        "": { character: "" },
        "airplane": { character: "\ue539", rotation: 90 }, // flight
        "airplane.circle": { character: "\ue539", rotation: 90, isCircled: true }, // flight
        "airplane.circle.fill": { character: "\ue539", rotation: 90, isDisc: true }, // flight
        "airplane.departure": { character: "\ue905" }, // flight_takeoff
        "arrow.left.arrow.right": { character: "\ue8d4" }, // swap_horiz
        "arrow.right": { character: "\ue5c8" }, // arrow_forward
        "arrow.up.right": { character: "\uf1e1" }, // north_east
        "bag.badge.questionmark": { character: "\uf235" }, // luggage
        "bolt.fill": { character: "\uea0b" }, // bolt
        "building.2": { character: "\uea40" }, // apartment
        "calendar": { character: "\ue878" }, // event
        "checkmark": { character: "\ue5ca" }, // check
        "chevron.down": { character: "\ue5cf" }, // expand_more
        "chevron.left": { character: "\ue5cb" }, // chevron_left
        "chevron.right": { character: "\ue5cc" }, // chevron_right
        "chevron.up": { character: "\ue5ce" }, // expand_less
        "clock.arrow.circlepath": { character: "\ue889" }, // history
        "doc.on.doc": { character: "\ue14d" }, // content_copy
        "door.left.hand.open": { character: "\ueb4f" }, // meeting_room
        "exclamationmark.triangle.fill": { character: "\ue002" }, // warning
        "fork.knife": { character: "\ue56c" }, // restaurant
        "lightbulb.fill": { character: "\ue0f0" }, // lightbulb
        "magnifyingglass": { character: "\ue8b6" }, // search
        "map": { character: "\ue55b" }, // map
        "map.circle.fill": { character: "\ue55b", isDisc: true }, // map
        "sparkles": { character: "\ue65f" }, // auto_awesome
        "suitcase": { character: "\uf235" }, // luggage
        "sun.max.fill": { character: "\ue430" }, // wb_sunny
        "ticket": { character: "\ue638" }, // confirmation_number
        "xmark.circle.fill": { character: "\ue5c9" } // cancel
    })
}
