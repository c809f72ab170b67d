import QtQuick 2.15
import Editor 1.0

// The delegate of a vertex: a box that can be dragged, with a port for wires on each side.
Rectangle {
    id: vertexBox

    property var canvas
    readonly property var vertex: itemData
    readonly property bool isTarget: canvas.wireFits && canvas.wireTarget === vertex

    // Where wires leave the box, or enter it, in the graph.
    function port(isOut) {
        return Qt.point(vertex.centerX + (isOut ? 1 : -1) * vertex.width / 2, vertex.centerY)
    }

    objectName: vertex.label
    x: vertex.centerX - width / 2
    y: vertex.centerY - height / 2
    z: vertex.isSelected ? 1 : 0
    width: vertex.width
    height: vertex.height
    radius: 4
    color: vertex.isSelected ? Theme.selection : area.containsMouse ? Theme.outline : Theme.raised
    border.width: vertex.isSelected || isTarget ? 2 : 1
    border.color: isTarget ? Theme.good : vertex.isSelected ? Theme.accent : Theme.outline

    Icon {
        id: icon

        x: 14
        anchors.verticalCenter: parent.verticalCenter
        name: vertex.icon
        color: Theme.nodeColors[vertex.icon]
    }
    Label {
        anchors.left: icon.right
        anchors.leftMargin: 7
        anchors.right: parent.right
        anchors.rightMargin: 14
        height: parent.height
        text: vertex.label
    }
    MouseArea {
        id: area

        property point last
        property bool isDragging: false

        anchors.fill: parent
        hoverEnabled: true
        onPressed: {
            canvas.forceActiveFocus()
            last = mapToItem(vertexBox.parent, mouse.x, mouse.y)
            if (mouse.modifiers & Qt.ControlModifier)
                canvas.document.toggle(vertex)
            else if (!vertex.isSelected)
                canvas.document.select(vertex)
        }
        onPositionChanged: {
            if (!pressed)
                return
            const place = mapToItem(vertexBox.parent, mouse.x, mouse.y)
            // A hand that trembles during a click does not move the box.
            if (!isDragging && Math.abs(place.x - last.x) + Math.abs(place.y - last.y) < 4 / canvas.zoom)
                return
            if (!isDragging)
                vertex.dragStarted(place.x, place.y)
            isDragging = true
            canvas.document.moveSelected(place.x - last.x, place.y - last.y)
            last = place
        }
        onReleased: {
            if (isDragging)
                vertex.dragStopped(last.x, last.y)
            isDragging = false
        }
    }
    Repeater {
        model: [false, true]
        WirePort {
            x: (modelData ? vertexBox.width : 0) - width / 2
            y: (vertexBox.height - height) / 2
            box: vertexBox
            isOut: modelData
        }
    }
}
