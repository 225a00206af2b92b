pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The guide of the search's destination and the airline's promotions, on two tabs. Every opening
/// loads them anew, for the destination of that moment.
Sheet {
    id: guideSheet

    required property FlightSearchViewModel search

    objectName: "cityGuideSheet"
    title: "Destinasyon Rehberi & Fırsatlar"
    sheetWidth: 560
    sheetHeight: 500

    ScrollSheetContent {
        id: content

        readonly property CityGuideViewModel viewModel: CityGuideViewModel {}
        readonly property bool isLoading: viewModel.isLoading
        /// 0 is the guide, 1 the promotions.
        property int activeTab: 0

        sheet: guideSheet
        symbol: "map.circle.fill"
        hasDivider: false
        onActiveTabChanged: page.scrollTo(0)
        // That it loads is read with the sheet, which has just opened.
        onIsLoadingChanged: if (!isLoading) ScreenReader.announce(viewModel.guideInfo.city + " rehberi yüklendi")
        Component.onCompleted: {
            viewModel.startLoading(guideSheet.search.destinationCode);
            tabBar.currentSegment.focus = true;
        }

        headerContent: SegmentedControl {
            id: tabBar

            objectName: "guideTabs"
            Layout.fillWidth: true
            Accessible.name: "Rehber sekmeleri"
            model: [content.viewModel.destinationCode + " Şehir Rehberi", "Aktif Kampanyalar"]
            currentIndex: content.activeTab
            onActivated: index => content.activeTab = index
        }

        LoadingPanel {
            objectName: "guideLoadingPanel"
            Layout.fillWidth: true
            visible: content.isLoading
            padding: 50
            text: "Rehber bilgileri yükleniyor..."
            textSize: VTRTheme.calloutSize
            textColor: VTRTheme.textMuted
        }

        CityGuidePage {
            objectName: "cityGuidePage"
            Layout.fillWidth: true
            visible: !content.isLoading && content.activeTab === 0 && content.viewModel.hasGuideInfo
            guide: content.viewModel.guideInfo
        }

        // The airline's promotions, in the server's order.
        Column {
            id: promotions

            objectName: "promotionsPage"
            Layout.fillWidth: true
            visible: !content.isLoading && content.activeTab === 1
            spacing: 12

            Repeater {
                model: FirstRows {
                    // Sixty long cards that come into sight at once would be laid out at once.
                    sourceModel: promotions.visible ? content.viewModel.promotions : null
                }

                PromotionCard {
                    width: promotions.width
                }
            }
        }
    }
}
