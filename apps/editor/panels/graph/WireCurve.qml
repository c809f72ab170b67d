import QtQuick 2.15
import Editor 1.0
import Editor.Items 1.0

// The delegate of an edge: a curve from the right side of one box to the left side of another.
CurveItem {
    id: wire

    property var canvas
    readonly property var edge: itemData
    readonly property var start: edge.fromVertex
    readonly property var end: edge.toVertex

    objectName: start.label + " > " + end.label
    from: Qt.point((start.centerX + start.width / 2) * canvas.zoom, start.centerY * canvas.zoom)
    to: Qt.point((end.centerX - end.width / 2) * canvas.zoom, end.centerY * canvas.zoom)
    lineWidth: edge.isSelected ? 3 : 2
    color: edge.isSelected ? Theme.accent : area.containsMouse ? Theme.text : Theme.nodeColors[start.icon]
    opacity: edge.isSelected || area.containsMouse ? 1 : 0.6

    MouseArea {
        id: area

        anchors.fill: parent
        containmentMask: wire
        hoverEnabled: true
        onPressed: {
            canvas.forceActiveFocus()
            if (mouse.modifiers & Qt.ControlModifier)
                canvas.document.toggle(edge)
            else
                canvas.document.select(edge)
        }
    }
}
