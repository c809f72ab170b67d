import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// Undo, redo and save, and whether there is something to save.
Rectangle {
    property var document
    readonly property var history: document.history

    implicitHeight: Theme.barHeight + 4
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        spacing: Theme.spacing

        IconButton {
            objectName: "undo"
            enabled: history.canUndo
            icon.name: "undo"
            tip: qsTr("Undo (Ctrl+Z)")
            onClicked: history.undo()
        }
        IconButton {
            objectName: "redo"
            enabled: history.canRedo
            icon.name: "redo"
            tip: qsTr("Redo (Ctrl+Shift+Z)")
            onClicked: history.redo()
        }
        Item { Layout.fillWidth: true }
        Rectangle {
            implicitWidth: 7
            implicitHeight: 7
            radius: 4
            color: history.clean ? "transparent" : Theme.pending
            border.color: history.clean ? Theme.outline : color
        }
        Label {
            objectName: "modified"
            text: history.clean ? qsTr("Saved") : qsTr("Modified")
            color: history.clean ? Theme.faint : Theme.pending
        }
        IconButton {
            objectName: "save"
            enabled: !history.clean
            icon.name: "save"
            text: qsTr("Save")
            tip: qsTr("Takes the present state for the saved one (Ctrl+S)")
            onClicked: document.save()
        }
    }
}
