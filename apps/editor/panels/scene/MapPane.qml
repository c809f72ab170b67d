import QtQuick 2.15
import Editor 1.0
import Editor.Scene 1.0

// The level from above, north up.
FocusScope {
    property var panel

    LevelMap {
        id: map

        objectName: "map"
        anchors.fill: parent
        focus: true
        clip: true
        outliner: panel.outliner
        document: panel.document

        Keys.onPressed: {
            event.accepted = event.key === Qt.Key_F || event.key === Qt.Key_Delete || event.key === Qt.Key_Escape
            if (event.key === Qt.Key_F)
                map.fit()
            else if (event.key === Qt.Key_Delete)
                panel.outliner.remove()
            else if (event.key === Qt.Key_Escape)
                panel.outliner.clearSelection()
        }
    }
    Connections {
        target: panel.form.rows
        function onEdited() { map.repaint() }
    }
    Row {
        anchors.left: parent.left
        anchors.bottom: parent.bottom
        anchors.margins: Theme.margin
        spacing: Theme.spacing

        Label {
            objectName: "framed"
            font: Theme.smallFont
            color: Theme.secondary
            text: map.framedName ? qsTr("Framed: %1").arg(map.framedName) : qsTr("The whole level")
        }
    }
    IconButton {
        objectName: "fit"
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.margin

        Rectangle {
            z: -1
            anchors.fill: parent
            radius: Theme.radius
            color: Theme.pane
            opacity: 0.8
        }
        icon.name: "fit"
        tip: qsTr("Brings the whole level into view (F)")
        onClicked: map.fit()
    }
}
