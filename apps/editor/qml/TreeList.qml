import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A tree as a list: `rows` is a TreeRows, the delegate a TreeRow.
ListView {
    id: list

    property var rows

    readonly property int pageRows: Math.max(1, Math.floor(height / Theme.rowHeight) - 1)

    model: rows
    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    currentIndex: -1
    reuseItems: true
    T.ScrollBar.vertical: ScrollHandle { }

    Keys.onPressed: event.accepted = rows.navigate(event.key, pageRows)

    // After the view has taken in the change that moved the row.
    function follow() { positionViewAtIndex(rows.currentRow, ListView.Contain) }
    Connections {
        target: rows
        function onCurrentRowChanged() { Qt.callLater(list.follow) }
    }
}
