pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The airline's promotions, in the server's order.
Column {
    id: page

    required property CountedListModel promotions

    spacing: 12

    Repeater {
        model: FirstRows {
            sourceModel: page.promotions
        }

        PromotionCard {
            width: page.width
        }
    }
}
