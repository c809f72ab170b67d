import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The maps, of which some can be picked.
FocusScope {
    id: pane

    property var panel

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    PaneTitle {
        id: heading

        width: parent.width
        text: qsTr("Maps")
    }
    MapRow {
        id: all

        objectName: "allMaps"
        anchors.top: heading.bottom
        width: parent.width
        visible: list.count > 0
        text: qsTr("All (%1 of %2)").arg(panel.checkedMaps).arg(list.count)
        isChecked: panel.checkedMaps === list.count
        isPartly: panel.checkedMaps > 0 && !isChecked
        color: Theme.pane
        onToggled: panel.checkAllMaps(!isChecked)
    }
    ListView {
        id: list

        objectName: "maps"
        anchors.top: all.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        focus: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        model: panel.maps
        T.ScrollBar.vertical: ScrollHandle { }

        Keys.onSpacePressed: if (currentItem) currentItem.toggled()

        delegate: MapRow {
            width: list.width
            text: model.name
            isChecked: model.checked
            isCurrent: list.activeFocus && ListView.isCurrentItem
            onToggled: {
                list.currentIndex = index
                panel.checkMap(index, !isChecked)
            }
        }
    }
    EmptyState {
        objectName: "noMaps"
        visible: list.count === 0
        iconName: "map"
        text: qsTr("No maps in\nscripts/arena_defs")
    }
}
