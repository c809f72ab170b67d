import QtQuick 2.15
import Editor 1.0

// The bare ground of a canvas: a drag selects what it covers, the middle button moves the sheet, the wheel zooms.
MouseArea {
    id: area

    property var canvas
    property point start
    property point originAtStart
    readonly property bool isMoving: pressed && pressedButtons & Qt.MiddleButton
    property bool isSelecting: false

    acceptedButtons: Qt.LeftButton | Qt.MiddleButton
    cursorShape: isMoving ? Qt.ClosedHandCursor : Qt.ArrowCursor

    onPressed: {
        canvas.forceActiveFocus()
        start = Qt.point(mouse.x, mouse.y)
        originAtStart = canvas.origin
        if (mouse.button === Qt.LeftButton && !(mouse.modifiers & Qt.ControlModifier))
            canvas.document.select(null)
    }
    onPositionChanged: {
        if (isMoving)
            canvas.origin = Qt.point(originAtStart.x + mouse.x - start.x, originAtStart.y + mouse.y - start.y)
        else
            isSelecting = true
    }
    onReleased: {
        if (isSelecting) {
            const corner = canvas.toGraph(Qt.point(band.x, band.y))
            canvas.document.selectIn(Qt.rect(corner.x, corner.y, band.width / canvas.zoom, band.height / canvas.zoom),
                                     mouse.modifiers & Qt.ControlModifier)
        }
        isSelecting = false
    }
    onCanceled: isSelecting = false
    onWheel: canvas.zoomAt(Qt.point(wheel.x, wheel.y), Math.pow(1.2, wheel.angleDelta.y / 120))

    Rectangle {
        id: band

        z: 1
        visible: area.isSelecting
        x: Math.min(area.start.x, area.mouseX)
        y: Math.min(area.start.y, area.mouseY)
        width: Math.abs(area.mouseX - area.start.x)
        height: Math.abs(area.mouseY - area.start.y)
        color: Theme.selection
        opacity: 0.4
        border.color: Theme.accent
    }
}
