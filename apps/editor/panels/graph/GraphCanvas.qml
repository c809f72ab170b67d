import QtQuick 2.15
import QtQml.Models 2.15
import Editor 1.0
import Editor.Items 1.0

// The graph on an endless sheet. The wheel zooms, the middle button moves the sheet, a drag on it selects.
FocusScope {
    id: view

    property var document
    property real zoom: 1
    property point origin: Qt.point(0, 0) // of the sheet, in the view

    // The wire that is being drawn: from or to a port of this box, its other end, and the vertex under that.
    property var wireBox: null
    property bool wireIsOut: true
    property point wirePlace
    property var wireTarget: null
    readonly property bool wireFits: wireTarget !== null
                                     && document.accepts(wireIsOut ? wireBox.vertex : wireTarget,
                                                         wireIsOut ? wireTarget : wireBox.vertex)

    function toGraph(place) { return Qt.point((place.x - origin.x) / zoom, (place.y - origin.y) / zoom) }

    function fit() {
        const bounds = document.bounds()
        if (width <= 0 || height <= 0 || bounds.width <= 0)
            return
        zoom = Math.min(1.5, (width - 80) / bounds.width, (height - 80) / bounds.height)
        origin = Qt.point(width / 2 - (bounds.x + bounds.width / 2) * zoom,
                          height / 2 - (bounds.y + bounds.height / 2) * zoom)
    }
    function zoomAt(place, factor) {
        const wanted = Math.min(3, Math.max(0.1, zoom * factor))
        const growth = wanted / zoom
        origin = Qt.point(place.x - (place.x - origin.x) * growth, place.y - (place.y - origin.y) * growth)
        zoom = wanted
    }
    function beginWire(box, isOut, place) {
        wireBox = box
        wireIsOut = isOut
        pullWire(place)
    }
    function pullWire(place) {
        wirePlace = place
        wireTarget = vertexAt(place)
    }
    function endWire(connects) {
        if (connects && wireFits)
            document.wirePalette.requestEdgeCreation(wireIsOut ? wireBox.vertex : wireTarget,
                                                     wireIsOut ? wireTarget : wireBox.vertex)
        wireTarget = null
        wireBox = null
    }
    // The vertex at a place of the graph, ports included; null on bare ground.
    function vertexAt(place) {
        for (let i = boxes.count - 1; i >= 0; --i) {
            const vertex = boxes.itemAt(i).vertex
            if (Math.abs(place.x - vertex.centerX) <= vertex.width / 2 + 9
                    && Math.abs(place.y - vertex.centerY) <= vertex.height / 2)
                return vertex
        }
        return null
    }
    function showDrop(place) {
        drop.visible = contains(place)
        drop.x = place.x - drop.width / 2
        drop.y = place.y - drop.height / 2
    }
    function hideDrop() { drop.visible = false }

    property bool wasFitted: false
    function fitOnce() {
        if (!wasFitted && width > 0 && height > 0) {
            wasFitted = true
            fit()
        }
    }
    onWidthChanged: fitOnce()
    onHeightChanged: fitOnce()

    clip: true
    activeFocusOnTab: true
    Keys.onDeletePressed: document.removeSelected()
    Keys.onEscapePressed: document.select(null)
    Keys.onPressed: {
        const step = event.modifiers & Qt.ShiftModifier ? 50 : 5
        event.accepted = true
        if (event.key === Qt.Key_A && event.modifiers & Qt.ControlModifier)
            document.selectAll()
        else if (event.key === Qt.Key_Backspace)
            document.removeSelected()
        else if (event.key === Qt.Key_F && !event.modifiers)
            fit()
        else if (event.key === Qt.Key_Left)
            document.moveSelected(-step, 0)
        else if (event.key === Qt.Key_Right)
            document.moveSelected(step, 0)
        else if (event.key === Qt.Key_Up)
            document.moveSelected(0, -step)
        else if (event.key === Qt.Key_Down)
            document.moveSelected(0, step)
        else
            event.accepted = false
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    SheetArea {
        anchors.fill: parent
        canvas: view
    }
    Item {
        id: sheet

        x: view.origin.x
        y: view.origin.y

        Repeater {
            model: DelegateModel {
                model: view.document.model
                rootIndex: view.document.model.index(0, 0)
                delegate: WireCurve { canvas: view }
            }
        }
        CurveItem {
            readonly property point port: wireBox ? wireBox.port(wireIsOut) : Qt.point(0, 0)
            readonly property point fixedEnd: Qt.point(port.x * zoom, port.y * zoom)
            readonly property point looseEnd: Qt.point(wirePlace.x * zoom, wirePlace.y * zoom)

            objectName: "drawnWire"
            visible: wireBox !== null
            from: wireIsOut ? fixedEnd : looseEnd
            to: wireIsOut ? looseEnd : fixedEnd
            color: wireFits ? Theme.good : wireTarget && wireTarget !== wireBox.vertex ? Theme.bad : Theme.accent
        }
        Item {
            scale: view.zoom
            transformOrigin: Item.TopLeft

            Repeater {
                id: boxes

                model: DelegateModel {
                    model: view.document.model
                    rootIndex: view.document.model.index(1, 0)
                    delegate: VertexBox { canvas: view }
                }
            }
        }
    }
    Rectangle {
        id: drop

        visible: false
        width: 180 * view.zoom
        height: 32 * view.zoom
        radius: Theme.radius
        color: "transparent"
        border.color: Theme.accent
    }
    EmptyState {
        objectName: "empty"
        visible: document.model.isEmpty
        iconName: "graph"
        text: qsTr("The graph is empty.\nClick a node in the list, or drag it here.")
    }
}
