import QtQuick 2.15
import QtQuick.Window 2.15
import Editor 1.0

// One asset of the grid: its picture, or the icon of its kind, and its name.
Item {
    id: tile

    readonly property GridView grid: GridView.view
    readonly property var selection: grid.panel.selection
    readonly property bool isCurrent: GridView.isCurrentItem
    property bool isSelected: false

    function followSelection() { isSelected = selection.isSelected(grid.panel.model.index(index, 0)) }

    objectName: model.path
    width: grid.cellWidth
    height: grid.cellHeight

    // A row that moves takes its selection along.
    readonly property int row: index
    onRowChanged: followSelection()
    Component.onCompleted: followSelection()
    Connections {
        target: tile.selection
        function onSelectionChanged() { tile.followSelection() }
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: 3
        radius: 4
        color: isSelected ? (grid.activeFocus ? Theme.selection : Theme.selectionInactive)
               : area.containsMouse ? Theme.hover : "transparent"
        border.width: isCurrent && grid.activeFocus ? 1 : 0
        border.color: Theme.accent

        Item {
            id: stage

            x: 5
            y: 5
            width: grid.tileSize
            height: grid.tileSize

            CheckerBoard {
                anchors.fill: picture
                visible: picture.status === Image.Ready
            }
            Image {
                id: picture

                property bool isCounted: false
                function count(isLoading) {
                    if (isCounted !== isLoading)
                        grid.loading += isLoading ? 1 : -1
                    isCounted = isLoading
                }

                readonly property real zoom: Math.min(stage.width / implicitWidth, stage.height / implicitHeight)

                anchors.centerIn: parent
                width: implicitWidth * Math.min(zoom, 4)
                height: implicitHeight * Math.min(zoom, 4)
                asynchronous: true
                cache: false
                smooth: zoom < 1
                sourceSize: Qt.size(grid.tileSize, grid.tileSize)
                source: grid.panel.pictureOf(model.path, model.modified)
                onStatusChanged: count(status === Image.Loading)
                Component.onDestruction: count(false)
            }
            Icon {
                anchors.centerIn: parent
                visible: picture.status !== Image.Ready && picture.status !== Image.Loading
                size: Math.min(48, grid.tileSize * 0.6)
                name: model.icon
                color: Theme.kindColors[model.icon] || Theme.secondary
            }
        }
        Label {
            anchors.top: stage.bottom
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 4
            height: 18
            horizontalAlignment: Text.AlignHCenter
            elide: Text.ElideMiddle
            font: Theme.smallFont
            text: model.name
            color: isSelected ? Theme.text : Theme.secondary
        }
        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
            onPressed: {
                grid.forceActiveFocus()
                grid.panel.selector.pressed(index)
            }
        }
        Tip {
            visible: area.containsMouse && tile.Window.window !== null // else the tile is on its way out
            text: model.path + "  (" + model.sizeText + ")"
        }
    }
}
