import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The objects of the scene, children under their parents; the buttons add to the current one, or remove it.
FocusScope {
    id: pane

    property var document

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: Theme.barHeight + 4
            color: Theme.pane
            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: Theme.margin
                anchors.rightMargin: Theme.margin
                spacing: 2

                Label {
                    text: qsTr("Add")
                    color: Theme.faint
                    rightPadding: 4
                }
                Repeater {
                    model: ["barge", "gate", "lamp"]
                    IconButton {
                        objectName: "add-" + modelData
                        icon.name: modelData
                        tip: qsTr("Add a %1 to the current object").arg(modelData)
                        onClicked: document.add(modelData)
                    }
                }
                Item { Layout.fillWidth: true }
                IconButton {
                    objectName: "remove"
                    enabled: document.canRemove
                    icon.name: "trash"
                    tip: qsTr("Remove the current object (Delete)")
                    onClicked: document.removeCurrent()
                }
            }
        }
        PaneTitle {
            Layout.fillWidth: true
            text: qsTr("Scene")
        }
        ListView {
            id: list

            objectName: "scene"
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            model: document.nodes
            T.ScrollBar.vertical: ScrollHandle { }

            Keys.onUpPressed: document.currentRow -= 1
            Keys.onDownPressed: document.currentRow += 1
            Keys.onDeletePressed: document.removeCurrent()

            // After the view has taken in the change that moved the row.
            function follow() { positionViewAtIndex(document.currentRow, ListView.Contain) }
            Connections {
                target: document
                function onCurrentRowChanged() { Qt.callLater(list.follow) }
            }

            delegate: Rectangle {
                readonly property bool isCurrent: index === document.currentRow

                objectName: "node-" + model.name
                width: list.width
                height: Theme.rowHeight
                color: isCurrent ? (list.activeFocus ? Theme.selection : Theme.selectionInactive)
                       : area.containsMouse ? Theme.hover : "transparent"

                Repeater {
                    model: level
                    Rectangle {
                        x: index * Theme.indent + 15
                        width: 1
                        height: Theme.rowHeight
                        color: Theme.guide
                    }
                }
                Icon {
                    id: icon

                    x: Theme.margin + model.level * Theme.indent
                    anchors.verticalCenter: parent.verticalCenter
                    name: model.icon
                    color: model.colour
                    opacity: model.isEnabled ? 1 : 0.4
                }
                Label {
                    anchors.left: icon.right
                    anchors.leftMargin: 6
                    anchors.right: parent.right
                    anchors.rightMargin: Theme.margin
                    height: parent.height
                    text: model.name
                    color: model.isEnabled ? Theme.text : Theme.faint
                }
                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onPressed: {
                        list.forceActiveFocus()
                        document.currentRow = index
                    }
                }
            }
        }
    }
}
