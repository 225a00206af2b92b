import QtQuick
import QtQuick.Layouts
import Vantora
import Vantora.Controls

/// The content of the city guide sheet: header, tabs and the page of the chosen tab.
FocusScope {
    id: tabs

    required property Sheet sheet
    readonly property CityGuideViewModel guide: CityGuideViewModel {}
    /// 0 is the guide, 1 the promotions.
    property int activeTab: 0

    /// Loads what the sheet shows; called once.
    function open(destinationCode: string) {
        guide.startLoading(destinationCode);
        tabBar.currentSegment.focus = true;
    }

    onActiveTabChanged: page.scrollTo(0)
    focus: true
    // Keys that the controls leave alone scroll the page.
    Keys.forwardTo: [page]

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        SheetHeader {
            Layout.fillWidth: true
            sheet: tabs.sheet
            symbol: "map.circle.fill"

            SegmentedControl {
                id: tabBar

                objectName: "guideTabs"
                Layout.fillWidth: true
                label: "Rehber sekmeleri"
                titles: [tabs.guide.destinationCode + " Şehir Rehberi", "Aktif Kampanyalar"]
                currentIndex: tabs.activeTab
                onChosen: index => tabs.activeTab = index
            }
        }

        ScrollPage {
            id: page

            objectName: "guidePage"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            contentHeight: content.height + 2 * VTRTheme.padding

            Column {
                id: content

                x: VTRTheme.padding
                y: VTRTheme.padding
                width: page.width - 2 * VTRTheme.padding

                LoadingPanel {
                    objectName: "guideLoadingPanel"
                    width: parent.width
                    visible: tabs.guide.isLoading
                    padding: 50
                    text: "Rehber bilgileri yükleniyor..."
                    textSize: VTRTheme.calloutSize
                    textColor: VTRTheme.textMuted
                }

                CityGuidePage {
                    objectName: "cityGuidePage"
                    width: parent.width
                    visible: !tabs.guide.isLoading && tabs.activeTab === 0 && tabs.guide.hasGuideInfo
                    guide: tabs.guide.guideInfo
                }

                PromotionsPage {
                    objectName: "promotionsPage"
                    width: parent.width
                    visible: !tabs.guide.isLoading && tabs.activeTab === 1
                    promotions: tabs.guide.promotions
                }
            }
        }
    }
}
