import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A tree as a list: `rows` is a TreeRows, `cursor` its TreeCursor, the delegate a TreeRow.
ListView {
    id: list

    property var rows
    property var cursor

    readonly property int pageRows: Math.max(1, Math.floor(height / Theme.rowHeight) - 1)

    model: rows
    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    currentIndex: -1
    reuseItems: true
    T.ScrollBar.vertical: ScrollHandle { }

    // For trees that do more: whether the key means something.
    property var takeKey: event => cursor.navigate(event.key, pageRows)

    Keys.onPressed: event.accepted = takeKey(event)

    // After the view has taken in the change that moved the row.
    function follow() { positionViewAtIndex(cursor.row, ListView.Contain) }
    Connections {
        target: cursor
        function onRowChanged() { Qt.callLater(list.follow) }
    }
}
