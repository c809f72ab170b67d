import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The images of the project to choose from, by their folders.
FocusScope {
    id: pane

    property var panel

    function focusWords() { words.forceActiveFocus() }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    Rectangle {
        id: bar

        width: parent.width
        height: Theme.barHeight + 4
        color: Theme.pane
        SearchField {
            id: words

            objectName: "words"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: Theme.margin
            anchors.verticalCenter: parent.verticalCenter
            placeholderText: qsTr("Words in name or path")
            tip: qsTr("Lists the images that have all of these words (Ctrl+F)")
            text: panel.words.text
            onTextEdited: panel.words.text = text
            Keys.onDownPressed: list.forceActiveFocus()
            onAccepted: list.forceActiveFocus()
        }
    }
    ListView {
        id: list

        objectName: "images"
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        clip: true
        activeFocusOnTab: true
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        model: panel.list
        currentIndex: -1
        highlightFollowsCurrentItem: false
        T.ScrollBar.vertical: ScrollHandle { }

        Keys.onUpPressed: panel.currentRow = Math.max(0, panel.currentRow - 1)
        Keys.onDownPressed: panel.currentRow = Math.min(count - 1, panel.currentRow + 1)
        Keys.onPressed: {
            event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End
            if (event.accepted)
                panel.currentRow = event.key === Qt.Key_Home ? 0 : count - 1
        }

        // After the view has taken in the change that moved the row.
        function follow() { positionViewAtIndex(panel.currentRow, ListView.Contain) }
        Connections {
            target: panel
            function onCurrentRowChanged() { Qt.callLater(list.follow) }
        }

        section.property: "folder"
        section.delegate: Label {
            width: list.width
            height: Theme.rowHeight
            leftPadding: Theme.margin
            elide: Text.ElideLeft
            font: Theme.smallFont
            color: Theme.faint
            text: section || ""
        }
        delegate: Rectangle {
            readonly property bool isCurrent: index === panel.currentRow

            objectName: model.path
            width: list.width
            height: Theme.rowHeight
            color: isCurrent ? (list.activeFocus ? Theme.selection : Theme.selectionInactive)
                   : area.containsMouse ? Theme.hover : "transparent"

            Icon {
                id: icon

                x: Theme.margin + 8
                anchors.verticalCenter: parent.verticalCenter
                name: model.extension === "atlas" ? "atlas" : "texture"
                color: model.extension === "atlas" ? Theme.kindColors["material"] : Theme.kindColors["texture"]
            }
            Label {
                anchors.left: icon.right
                anchors.leftMargin: 6
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                height: parent.height
                elide: Text.ElideMiddle
                text: model.name || ""
            }
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onPressed: {
                    list.forceActiveFocus()
                    panel.currentRow = index
                }
            }
        }
    }
    EmptyState {
        objectName: "empty"
        width: parent.width
        visible: panel.isEmpty
        iconName: "texture"
        text: panel.emptyReason
        actionText: panel.words.text ? qsTr("Clear the words") : ""
        onAction: panel.words.text = ""
    }
}
