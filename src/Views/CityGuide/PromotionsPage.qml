pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// The airline's promotions, in the server's order.
Column {
    id: page

    required property CountedListModel promotions

    spacing: 12

    Repeater {
        model: FirstRows {
            // Sixty long cards that come into sight at once would be laid out at once.
            sourceModel: page.visible ? page.promotions : null
        }

        PromotionCard {
            width: page.width
        }
    }
}
