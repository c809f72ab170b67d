import QtQuick 2.15
import Editor 1.0

// What nodes can be made of: a click puts one into the middle of the canvas, a drag to where it is let go.
Rectangle {
    id: pane

    property var document
    property var canvas

    color: Theme.pane

    PaneTitle {
        id: title

        width: parent.width
        text: qsTr("Add a node")
    }
    ListView {
        anchors.top: title.bottom
        anchors.topMargin: 4
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        interactive: false
        model: document.palette

        delegate: Rectangle {
            id: entry

            readonly property string iconName: document.palette.iconOf(model.itemID)

            objectName: "add-" + model.itemLabel
            width: ListView.view.width
            height: Theme.rowHeight + 2
            color: area.containsMouse ? Theme.hover : "transparent"

            Icon {
                id: icon

                x: Theme.margin + 2
                anchors.verticalCenter: parent.verticalCenter
                name: entry.iconName
                color: Theme.nodeColors[entry.iconName]
            }
            Label {
                anchors.left: icon.right
                anchors.leftMargin: 6
                anchors.right: parent.right
                height: parent.height
                text: model.itemLabel
            }
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                cursorShape: Qt.OpenHandCursor
                onPositionChanged: if (pressed) canvas.showDrop(mapToItem(canvas, mouse.x, mouse.y))
                onCanceled: canvas.hideDrop()
                onReleased: {
                    canvas.hideDrop()
                    const dropped = mapToItem(canvas, mouse.x, mouse.y)
                    const place = canvas.toGraph(canvas.contains(dropped) ? dropped
                                                 : Qt.point(canvas.width / 2, canvas.height / 2))
                    if (containsMouse || canvas.contains(dropped))
                        document.palette.requestVertexCreation(model.itemID, place.x, place.y)
                    canvas.forceActiveFocus()
                }
            }
        }
    }
}
