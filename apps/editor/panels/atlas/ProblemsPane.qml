import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// What will not work in the game. A click leads to the slot.
Rectangle {
    id: pane

    property var panel
    readonly property var problems: panel.document.problems

    implicitHeight: problems.length > 0 ? title.height + Math.min(5, problems.length) * Theme.rowHeight : 0
    visible: problems.length > 0
    color: Theme.window

    PaneTitle {
        id: title

        width: parent.width
        text: qsTr("Problems")
    }
    ListView {
        id: list

        objectName: "problems"
        anchors.top: title.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: pane.problems
        T.ScrollBar.vertical: ScrollHandle { }

        delegate: Rectangle {
            width: list.width
            height: Theme.rowHeight
            color: area.containsMouse ? Theme.hover : "transparent"

            Icon {
                id: icon

                x: Theme.margin
                anchors.verticalCenter: parent.verticalCenter
                name: "warning"
                color: Theme.pending
            }
            Label {
                anchors.left: icon.right
                anchors.leftMargin: Theme.margin
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                height: parent.height
                text: modelData
            }
            MouseArea {
                id: area

                readonly property var slot: modelData.match(/^Slot (\d+)/)

                anchors.fill: parent
                hoverEnabled: true
                onClicked: if (slot) pane.panel.selectSlot(parseInt(slot[1]))
            }
        }
    }
}
