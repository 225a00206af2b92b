import QtQuick
import Vantora
import Vantora.Controls

/// The guide of a city: what it is, what to see, what to know.
Column {
    id: page

    required property cityGuideInfo guide

    spacing: 12

    GuideOverviewCard {
        width: parent.width
        guide: page.guide
    }

    GuideListCard {
        width: parent.width
        symbol: "sparkles"
        title: "Görülmesi Gereken Yerler"
        entries: page.guide.topAttractions
        mark: Rectangle {
            width: 6
            height: 6
            radius: 3
            color: VTRTheme.vtrRed
            antialiasing: true
        }
    }

    GuideListCard {
        width: parent.width
        symbol: "lightbulb.fill"
        title: "Yerel Seyahat İpuçları"
        titleColor: VTRTheme.gold
        entries: page.guide.localTips
        entrySize: 12
        mark: Symbol {
            name: "checkmark"
            size: 11
            color: VTRTheme.gold
        }
    }
}
