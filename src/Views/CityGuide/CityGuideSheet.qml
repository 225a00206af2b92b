pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The guide of the search's destination and the airline's promotions, on two tabs. Every opening
/// loads them anew, for the destination of that moment.
ScrollSheet {
    id: guideSheet

    required property FlightSearchViewModel search

    readonly property CityGuideViewModel viewModel: CityGuideViewModel {}
    readonly property bool isLoading: viewModel.isLoading
    /// 0 is the guide, 1 the promotions.
    property int activeTab: 0

    objectName: "cityGuideSheet"
    title: "Destinasyon Rehberi & Fırsatlar"
    symbol: "map.circle.fill"
    implicitWidth: 560
    implicitHeight: 500
    onActiveTabChanged: page.scrollTo(0)
    // That it loads is read with the sheet, which has just opened.
    onIsLoadingChanged: if (!isLoading) ScreenReader.announce(viewModel.guideInfo.city + " rehberi yüklendi")
    Component.onCompleted: {
        viewModel.startLoading(search.destinationCode);
        tabBar.currentSegment.focus = true;
    }

    headerContent: SegmentedControl {
        id: tabBar

        objectName: "guideTabs"
        Layout.fillWidth: true
        Accessible.name: "Rehber sekmeleri"
        model: [guideSheet.viewModel.destinationCode + " Şehir Rehberi", "Aktif Kampanyalar"]
        currentIndex: guideSheet.activeTab
        onActivated: index => guideSheet.activeTab = index
    }

    LoadingPanel {
        objectName: "guideLoadingPanel"
        Layout.fillWidth: true
        visible: guideSheet.isLoading
        padding: 50
        text: "Rehber bilgileri yükleniyor..."
        textSize: VTRTheme.calloutSize
        textColor: VTRTheme.textMuted
    }

    CityGuidePage {
        objectName: "cityGuidePage"
        Layout.fillWidth: true
        visible: !guideSheet.isLoading && guideSheet.activeTab === 0 && guideSheet.viewModel.hasGuideInfo
        guide: guideSheet.viewModel.guideInfo
    }

    // The airline's promotions, in the server's order.
    Column {
        id: promotions

        objectName: "promotionsPage"
        Layout.fillWidth: true
        visible: !guideSheet.isLoading && guideSheet.activeTab === 1
        spacing: 12

        Repeater {
            model: FirstRows {
                // Sixty long cards that come into sight at once would be laid out at once.
                sourceModel: promotions.visible ? guideSheet.viewModel.promotions : null
            }

            PromotionCard {
                width: promotions.width
            }
        }
    }
}
