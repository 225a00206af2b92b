import QtQuick
import QtQuick.Layouts
import Vantora

/// The content of the city guide sheet: header, tabs and the page of the chosen tab.
FocusScope {
    id: tabs

    required property Sheet sheet
    readonly property CityGuideState guide: CityGuideState {}
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

            Loader {
                id: content

                x: VTRTheme.padding
                y: VTRTheme.padding
                width: page.width - 2 * VTRTheme.padding
                sourceComponent: tabs.guide.isLoading ? loadingPanel
                               : tabs.activeTab === 1 ? promotionsPage
                               : tabs.guide.hasGuideInfo ? guidePage : null
            }
        }
    }

    Component {
        id: loadingPanel

        LoadingPanel {
            objectName: "guideLoadingPanel"
            padding: 50
            text: "Rehber bilgileri yükleniyor..."
            textSize: VTRTheme.calloutSize
            textColor: VTRTheme.textMuted
        }
    }

    Component {
        id: guidePage

        CityGuidePage {
            objectName: "cityGuidePage"
            guide: tabs.guide.guideInfo
        }
    }

    Component {
        id: promotionsPage

        PromotionsPage {
            objectName: "promotionsPage"
            promotions: tabs.guide.promotions
        }
    }
}
