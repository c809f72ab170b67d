import QtQuick 2.15
import Editor 1.0

// Where wires leave a box, or enter it. A drag from here draws a wire, to be let go over another box.
Item {
    id: port

    property var box
    property bool isOut
    readonly property var canvas: box.canvas

    objectName: (isOut ? "out " : "in ") + box.vertex.label
    width: 18
    height: 18

    Rectangle {
        anchors.centerIn: parent
        width: area.containsMouse || area.pressed ? 11 : 8
        height: width
        radius: width / 2
        color: area.containsMouse || area.pressed ? Theme.accent : Theme.window
        border.color: Theme.nodeColors[box.vertex.icon]
        border.width: 1.5
    }
    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.CrossCursor
        onPressed: canvas.beginWire(box, isOut, mapToItem(box.parent, mouse.x, mouse.y))
        onPositionChanged: if (pressed) canvas.pullWire(mapToItem(box.parent, mouse.x, mouse.y))
        onReleased: canvas.endWire(true)
        onCanceled: canvas.endWire(false)
    }
}
