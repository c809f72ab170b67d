import QtQuick 2.15
import Editor 1.0

// The image on its ground. The wheel zooms at the pointer, a drag moves the image; from its own size on it is enlarged by
// whole pixels. Until it is zoomed it fits.
FocusScope {
    id: canvas

    property var panel
    readonly property var zooms: [0.0625, 0.125, 0.25, 0.5, 1, 2, 3, 4, 6, 8, 12, 16, 24, 32]
    property bool isFitting: true
    property real zoom: 1
    property point origin: Qt.point(0, 0)
    readonly property string pixelText: sheet.hovered
    readonly property int room: 24

    clip: true
    onWidthChanged: refit()
    onHeightChanged: refit()

    function refit() { if (isFitting) fit() }
    function fit() {
        const wide = (width - 2 * room) / sheet.pixelWidth
        const high = (height - 2 * room) / sheet.pixelHeight
        const most = Math.max(zooms[0], Math.min(wide, high))
        isFitting = true
        zoom = most < 1 ? most : zooms.filter(one => one <= most).pop()
        centre()
    }
    function centre() {
        origin = Qt.point(Math.round((width - sheet.pixelWidth * zoom) / 2),
                          Math.round((height - sheet.pixelHeight * zoom) / 2))
    }
    function showActual() {
        isFitting = false
        zoom = 1
        centre()
    }
    function step(by) { stepAt(Qt.point(width / 2, height / 2), by) }
    function stepAt(place, by) {
        const next = by > 0 ? zooms.find(one => one > zoom + 0.001) : zooms.filter(one => one < zoom - 0.001).pop()
        if (next === undefined)
            return
        const factor = next / zoom
        isFitting = false
        zoom = next
        origin = Qt.point(Math.round(place.x - (place.x - origin.x) * factor),
                          Math.round(place.y - (place.y - origin.y) * factor))
    }

    Keys.onPressed: {
        event.accepted = true
        switch (event.key) {
        case Qt.Key_F: fit(); break
        case Qt.Key_1: showActual(); break
        case Qt.Key_Plus: step(1); break
        case Qt.Key_Minus: step(-1); break
        default: event.accepted = false
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.field
    }
    MouseArea {
        id: area

        property point start
        property point originAtStart

        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.LeftButton | Qt.MiddleButton
        cursorShape: pressed ? Qt.ClosedHandCursor : Qt.ArrowCursor
        onPressed: {
            canvas.forceActiveFocus()
            start = Qt.point(mouse.x, mouse.y)
            originAtStart = canvas.origin
        }
        onPositionChanged: {
            if (!pressed)
                return
            canvas.isFitting = false
            canvas.origin = Qt.point(originAtStart.x + mouse.x - start.x, originAtStart.y + mouse.y - start.y)
        }
        onDoubleClicked: canvas.fit()
        onWheel: canvas.stepAt(Qt.point(wheel.x, wheel.y), wheel.angleDelta.y)
    }
    ImageSheet {
        id: sheet

        objectName: "sheet"
        x: canvas.origin.x
        y: canvas.origin.y
        panel: canvas.panel
        zoom: canvas.zoom
        pointer: area.containsMouse ? Qt.point(area.mouseX - x, area.mouseY - y) : Qt.point(-1, -1)
        onPixelWidthChanged: canvas.fit()
        onPixelHeightChanged: canvas.fit()
    }
    EmptyState {
        objectName: "state"
        visible: text
        iconName: "texture"
        text: sheet.problem
    }
}
