import QtQuick
import QtQuick.Templates as T
import Vantora.Controls

/// The entries of a menu that has dropped down.
SpokenList {
    id: list

    required property T.ComboBox menu

    implicitHeight: entries.contentHeight
    count: menu.count
    currentRow: menu.highlightedIndex
    selectedRow: menu.currentIndex
    isActive: menu.down
    onRowFocused: row => {
        for (let step = menu.highlightedIndex; step < row; ++step)
            menu.incrementCurrentIndex();
        for (let step = menu.highlightedIndex; step > row; --step)
            menu.decrementCurrentIndex();
    }
    onRowPressed: row => (entries.itemAtIndex(row) as T.ItemDelegate).clicked()

    function textOf(row: int): string {
        return menu.textAt(row);
    }
    function itemOf(row: int): Item {
        return entries.itemAtIndex(row);
    }

    ListView {
        id: entries

        anchors.fill: parent
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: list.menu.delegateModel
        currentIndex: list.menu.highlightedIndex
        highlightMoveDuration: 0
    }
}
