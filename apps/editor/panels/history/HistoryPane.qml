import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The steps of a document, oldest first: a click jumps to one, undone ones are faint. Above them, what the keys do too.
FocusScope {
    id: pane

    property var document
    readonly property var history: document.history
    readonly property bool isNarrow: width < 320

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
                    text: pane.isNarrow ? "" : qsTr("Save")
                    tip: qsTr("Takes the present state for the saved one (Ctrl+S)")
                    onClicked: document.save()
                }
                IconButton {
                    objectName: "clearHistory"
                    enabled: history.count > 0
                    icon.name: "clear"
                    text: pane.isNarrow ? "" : qsTr("Clear")
                    tip: qsTr("Forgets all steps; what they did stays")
                    onClicked: history.clear()
                }
            }
        }
        PaneTitle {
            Layout.fillWidth: true
            text: qsTr("History")
        }
        ListView {
            id: list

            objectName: "steps"
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            model: document.steps
            T.ScrollBar.vertical: ScrollHandle { }

            Keys.onUpPressed: history.jumpTo(history.index - 1)
            Keys.onDownPressed: history.jumpTo(history.index + 1)
            Keys.onPressed: {
                if (event.key === Qt.Key_Home || event.key === Qt.Key_End) {
                    event.accepted = true
                    history.jumpTo(event.key === Qt.Key_Home ? 0 : history.count)
                }
            }

            // After the view has taken in the change that moved the row.
            function follow() { positionViewAtIndex(history.index, ListView.Contain) }
            Connections {
                target: history
                function onIndexChanged() { Qt.callLater(list.follow) }
            }

            delegate: Rectangle {
                readonly property bool isCurrent: model.isCurrent

                objectName: "step-" + index
                width: list.width
                height: Theme.rowHeight
                color: isCurrent ? (list.activeFocus ? Theme.selection : Theme.selectionInactive)
                       : area.containsMouse ? Theme.hover : "transparent"

                Icon {
                    x: Theme.margin
                    anchors.verticalCenter: parent.verticalCenter
                    size: 12
                    visible: isCurrent
                    name: "arrow-right"
                    color: Theme.accent
                }
                Label {
                    x: 28
                    width: 24
                    height: parent.height
                    horizontalAlignment: Text.AlignRight
                    font: Theme.smallFont
                    text: index > 0 ? index : ""
                    color: Theme.faint
                }
                Label {
                    id: name

                    x: 62
                    width: Math.min(implicitWidth, parent.width - x - (model.isSaved ? 80 : Theme.margin))
                    height: parent.height
                    text: model.name
                    color: model.isUndone ? Theme.faint : index === 0 ? Theme.secondary : Theme.text
                }
                Row {
                    anchors.left: name.right
                    anchors.leftMargin: 14
                    height: parent.height
                    spacing: 4
                    visible: model.isSaved
                    Icon {
                        anchors.verticalCenter: parent.verticalCenter
                        size: 13
                        name: "save"
                        color: Theme.good
                    }
                    Label {
                        height: parent.height
                        text: qsTr("Saved")
                        font: Theme.smallFont
                        color: Theme.good
                    }
                }
                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onPressed: list.forceActiveFocus()
                    onClicked: history.jumpTo(index)
                }
            }
        }
    }
}
