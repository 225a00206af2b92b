pragma ComponentBehavior: Bound

import QtQuick
import Vantora

/// The airline's promotions, in the server's order.
Column {
    id: page

    required property CountedListModel promotions

    spacing: 12

    Repeater {
        model: page.promotions

        PromotionCard {
            width: page.width
        }
    }
}
