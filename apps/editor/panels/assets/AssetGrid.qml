import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The assets side by side. The panel's selector sees to the arrows and the presses; the current tile stays in sight.
GridView {
    id: grid

    property var panel
    property int tileSize
    property int loading: 0

    cellWidth: tileSize + 16
    cellHeight: tileSize + 34
    leftMargin: Theme.margin
    topMargin: Theme.margin
    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    currentIndex: -1
    model: panel.model
    T.ScrollBar.vertical: ScrollHandle { }

    onLoadingChanged: panel.loading = loading
    Component.onCompleted: panel.selector.target = grid
    Keys.onEscapePressed: panel.selector.pressed(-1)
    Keys.onPressed: {
        event.accepted = event.key === Qt.Key_A && event.modifiers & Qt.ControlModifier
        if (event.accepted)
            panel.selectAll()
    }

    Rectangle {
        parent: grid
        anchors.fill: parent
        z: -1
        color: Theme.window
        MouseArea {
            anchors.fill: parent
            onPressed: {
                grid.forceActiveFocus()
                panel.selector.pressed(-1)
            }
        }
    }
    delegate: AssetTile { }
    EmptyState {
        objectName: "empty"
        parent: grid
        visible: panel.isEmpty
        text: panel.emptyReason
        actionText: panel.words.text ? qsTr("Clear the words") : ""
        onAction: panel.words.text = ""
    }
}
