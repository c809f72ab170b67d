import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import QelmTools.AtlasEditor 1.0
import Editor 1.0

// The slots as they lie in the atlas, row by row. The panel's selector sees to the arrows and the presses.
Flickable {
    id: area

    property var panel
    readonly property var document: panel.document
    readonly property var settings: document.context.settings
    property int loading: 0

    contentWidth: grid.width
    contentHeight: height
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.HorizontalFlick
    T.ScrollBar.horizontal: ScrollHandle { }

    onLoadingChanged: panel.loading = loading

    Rectangle {
        parent: area
        anchors.fill: parent
        z: -1
        color: Theme.field
        MouseArea {
            anchors.fill: parent
            onPressed: {
                grid.forceActiveFocus()
                panel.selector.pressed(-1)
            }
        }
    }
    QtAtlasModel {
        id: slots

        source: document.context.object
        selection: document.context.selectionModel
    }
    GridView {
        id: grid

        objectName: "slots"
        x: Math.max(0, (area.width - width) / 2)
        y: Theme.margin
        width: slots.columnCount * cellWidth
        height: Math.min(area.height - 2 * y, slots.rowCount * cellHeight)
        cellWidth: Math.max(24, Math.round(document.tileSize * area.settings.zoomFactor)) + 4
        cellHeight: cellWidth
        focus: true
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        currentIndex: -1
        model: slots
        T.ScrollBar.vertical: ScrollHandle { parent: area; anchors.right: parent.right; height: parent.height }

        Component.onCompleted: panel.selector.target = grid
        Keys.onPressed: {
            event.accepted = true
            if (event.key === Qt.Key_A && event.modifiers & Qt.ControlModifier)
                panel.selectAll()
            else if (event.key === Qt.Key_Delete)
                panel.clearSelected()
            else if (event.key === Qt.Key_Escape)
                panel.selector.pressed(-1)
            else if (event.key === Qt.Key_Plus)
                document.view.setZoom(area.settings.zoomFactor * 1.25)
            else if (event.key === Qt.Key_Minus)
                document.view.setZoom(area.settings.zoomFactor / 1.25)
            else
                event.accepted = false
        }
        delegate: AtlasSlot { }
    }
    DropArea {
        id: drop

        parent: area
        anchors.fill: parent
        keys: ["text/uri-list"]
        onDropped: document.addFiles(drop.urls)

        Rectangle {
            anchors.fill: parent
            visible: parent.containsDrag
            color: "transparent"
            border.color: Theme.accent
            border.width: 2
        }
    }
    MouseArea {
        parent: area
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        onWheel: {
            wheel.accepted = wheel.modifiers & Qt.ControlModifier
            if (wheel.accepted)
                document.view.setZoom(area.settings.zoomFactor * Math.pow(1.25, wheel.angleDelta.y / 120))
        }
    }
}
