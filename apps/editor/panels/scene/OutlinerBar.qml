import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// What can be added, removed and read again.
Rectangle {
    id: bar

    property var outliner
    property var document
    signal left // towards the rows

    function focusText() { words.forceActiveFocus() }

    implicitHeight: 2 * Theme.barHeight + 4
    color: Theme.pane

    ColumnLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        anchors.topMargin: 4
        anchors.bottomMargin: 2
        spacing: 2

        RowLayout {
            spacing: 1

            Label {
                text: qsTr("Add")
                color: Theme.faint
                rightPadding: 3
            }
            Repeater {
                model: [
                    { type: "Group", icon: "folder", tip: qsTr("Add a group") },
                    { type: "Actor", icon: "actor", tip: qsTr("Add an actor") },
                    { type: "Light", icon: "lamp", tip: qsTr("Add a light") },
                    { type: "SpawnPoint", icon: "flag", tip: qsTr("Add a spawn point") },
                    { type: "Path", icon: "path", tip: qsTr("Add a path") }
                ]
                IconButton {
                    objectName: "add-" + modelData.type
                    icon.name: modelData.icon
                    tip: modelData.tip
                    onClicked: outliner.add(modelData.type)
                }
            }
            Item { Layout.fillWidth: true }
            IconButton {
                objectName: "remove"
                enabled: outliner.canRemove
                icon.name: "trash"
                tip: qsTr("Delete what is selected (Delete)")
                onClicked: outliner.remove()
            }
            IconButton {
                objectName: "collapseAll"
                icon.name: "collapse-all"
                tip: qsTr("Collapse all")
                onClicked: outliner.rows.collapseAll()
            }
            IconButton {
                objectName: "reload"
                icon.name: "reload"
                tip: qsTr("Read the level from its file again (F5)")
                onClicked: document.askToReload()
            }
        }
        SearchField {
            id: words

            objectName: "words"
            Layout.fillWidth: true
            placeholderText: qsTr("Words in name or type")
            tip: qsTr("Shows what has all of the words in its name or type (Ctrl+F)")
            text: outliner.filter.words.text
            onTextEdited: outliner.filter.words.text = text
            Keys.onDownPressed: bar.left()
            onAccepted: bar.left()
        }
    }
}
