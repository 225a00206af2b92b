pragma ComponentBehavior: Bound

import QtQuick
import Vantora
import Vantora.Controls

/// The flights of the selected day: heading, chips, and the list or what stands for it.
VTRCard {
    id: section

    required property FlightSearchViewModel viewModel
    required property ScrollPage page
    /// Where this item begins in the page's content.
    required property real topInPage
    /// The margin of the page below this item.
    required property real roomBelow

    readonly property bool isSearching: viewModel.isSearchingFlightsOnly || viewModel.isLoading
    readonly property bool isEmpty: !isSearching && viewModel.filteredFlights.count === 0
    readonly property bool hasEarlierFlights: !isSearching && !isEmpty && viewModel.earlierSearch.length > 0

    // Not the column's own height, which follows with the next frame: until then the page would scroll
    // to a wrong end.
    readonly property real bodyHeight: isSearching ? loading.height : isEmpty ? nothing.height : list.implicitHeight
    readonly property real naturalHeight: padding + body.y + bodyHeight + padding
    /// Up to the end of the page's view: while the flights are away the page stays where it is.
    readonly property real heightInView: page.contentY + page.height - topInPage - roomBelow

    component HeadingText: PlainText {
        font.pixelSize: 18
        font.weight: Font.Bold
    }

    /// Announces what is under way, or what came of it.
    function announce() {
        const count = viewModel.filteredFlights.count;
        const outcome = count === 0 ? nothing.heading : count + " uçuş bulundu";
        ScreenReader.announce(isSearching ? loading.text : viewModel.hasErrorMessage ? viewModel.errorMessage : outcome);
    }

    onIsSearchingChanged: announce()

    // The flights of a search may come after another one has lowered the flag.
    Connections {
        target: section.viewModel

        function onFilteredFlightsChanged() {
            if (!section.isSearching && section.viewModel.filteredFlights.areNew())
                section.announce();
        }
        function onErrorMessageChanged() {
            if (!section.isSearching && section.viewModel.hasErrorMessage)
                section.announce();
        }
    }

    implicitHeight: Math.max(naturalHeight, isSearching ? heightInView : 0)

    // The note comes and goes above the cards that one looks at.
    onHasEarlierFlightsChanged: {
        const top = topInPage + padding + chips.y + chips.height;
        page.follow(top, (hasEarlierFlights ? 1 : -1) * (note.height + column.spacing));
    }

    Column {
        id: column

        width: parent.width
        spacing: 16

        Column {
            width: parent.width
            spacing: 4

            Row {
                spacing: 5
                Accessible.role: Accessible.Heading
                Accessible.name: section.viewModel.originCode + " ➔ " + title.text

                HeadingText {
                    text: section.viewModel.originCode
                }

                // Drawn: the embedded fonts lack this arrow, and others may not be there.
                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "arrow.right"
                    size: 17
                }

                HeadingText {
                    id: title

                    text: section.viewModel.destinationCode + " Uçuş Seçenekleri"
                }
            }

            PlainText {
                width: parent.width
                elide: Text.ElideRight
                text: section.viewModel.selectedDate + " tarihi için müsait olan Vantora Hava Yolları seferleri"
                font.pixelSize: 12
                color: VTRTheme.textMuted
            }
        }

        // One tab stop, within which the arrows move and choose.
        Row {
            id: chips

            spacing: VTRTheme.spacing
            Accessible.role: Accessible.Grouping
            Accessible.name: "Sıralama ve filtre"

            Repeater {
                model: SearchChoices.sortOptions

                RadioButton {
                    required property int index
                    required property string modelData

                    text: modelData
                    checked: index === section.viewModel.activeFilter
                    onClicked: {
                        section.viewModel.applyFilter(index);
                        section.announce();
                    }
                }
            }
        }

        // The flights below are not those of the day and the route above.
        RoundedSurface {
            id: note

            width: parent.width
            visible: section.hasEarlierFlights
            implicitHeight: Math.ceil(noteText.implicitHeight) + 2 * 8
            radius: VTRTheme.controlRadius
            color: VTRTheme.withOpacity(VTRTheme.gold, 0.12)

            Symbol {
                id: noteSymbol

                x: 12
                anchors.verticalCenter: parent.verticalCenter
                name: "clock.arrow.circlepath"
                size: 14
                color: VTRTheme.gold
            }

            PlainText {
                id: noteText

                anchors.left: noteSymbol.right
                anchors.right: parent.right
                anchors.margins: 8
                y: 8
                wrapMode: Text.Wrap
                text: "Aşağıdaki uçuşlar önceki aramaya ait: " + section.viewModel.earlierSearch
                font.pixelSize: VTRTheme.calloutSize
                font.weight: Font.Medium
            }
        }

        Item {
            id: body

            width: parent.width
            height: section.bodyHeight

            LoadingPanel {
                id: loading

                width: parent.width
                visible: section.isSearching
                text: "Uçuşlar yükleniyor..."
            }

            MessagePanel {
                id: nothing

                objectName: "noFlights"
                width: parent.width
                visible: section.isEmpty
                opacity: visible ? 1 : 0
                spacing: 12
                symbol: "airplane.circle"
                symbolSize: 44
                heading: "Bu tarihte tarifeli uçuş bulunamadı"
                headingWeight: Font.DemiBold
                text: "Fiyat grafiğinden yakın tarihleri seçerek diğer seferleri inceleyebilirsiniz."

                Behavior on opacity {
                    EaseInOut { duration: Motion.ResultsDuration }
                }
            }

            FlightList {
                id: list

                width: parent.width
                height: implicitHeight
                visible: !section.isSearching && !section.isEmpty
                opacity: !visible ? 0 : section.hasEarlierFlights ? VTRTheme.earlierOpacity : 1
                flights: section.viewModel.filteredFlights
                page: section.page
                topInPage: section.topInPage + section.padding + body.y

                Behavior on opacity {
                    EaseInOut { duration: Motion.ResultsDuration }
                }
            }
        }
    }
}
