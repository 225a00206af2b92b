import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The content of the city guide sheet: tabs and the page of the chosen tab.
ScrollSheetContent {
    id: content

    required property string destinationCode
    readonly property CityGuideViewModel viewModel: CityGuideViewModel {}
    /// 0 is the guide, 1 the promotions.
    property int activeTab: 0
    readonly property bool isLoading: viewModel.isLoading

    symbol: "map.circle.fill"
    hasDivider: false
    onActiveTabChanged: page.scrollTo(0)
    // That it loads is read with the sheet, which has just opened.
    onIsLoadingChanged: if (!isLoading) ScreenReader.announce(viewModel.guideInfo.city + " rehberi yüklendi")
    Component.onCompleted: {
        viewModel.startLoading(destinationCode);
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

    PromotionsPage {
        objectName: "promotionsPage"
        Layout.fillWidth: true
        visible: !content.isLoading && content.activeTab === 1
        promotions: content.viewModel.promotions
    }
}
