import QtQuick 2.15
import Editor 1.0

// The kind selector: all kinds of the project with their numbers, one of which can be chosen.
Rectangle {
    property var panel

    color: Theme.pane

    PaneTitle {
        id: title

        width: parent.width
        text: qsTr("Kind")
    }
    ListView {
        objectName: "kinds"
        anchors.top: title.bottom
        anchors.topMargin: 4
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: panel.kinds

        delegate: Rectangle {
            readonly property bool isChosen: model.choice === panel.filter.kind.currentIndex

            objectName: "kind-" + model.title
            width: ListView.view.width
            height: Theme.rowHeight
            color: isChosen ? Theme.selection : area.containsMouse ? Theme.hover : "transparent"

            Rectangle {
                width: 2
                height: parent.height
                visible: isChosen
                color: Theme.accent
            }
            Icon {
                id: icon

                x: Theme.margin + 2
                anchors.verticalCenter: parent.verticalCenter
                name: model.icon
                color: Theme.kindColors[model.icon]
            }
            Label {
                anchors.left: icon.right
                anchors.leftMargin: 6
                anchors.right: number.left
                height: parent.height
                text: model.title
            }
            Label {
                id: number

                anchors.right: parent.right
                anchors.rightMargin: Theme.margin + 2
                height: parent.height
                text: model.count
                color: isChosen ? Theme.text : Theme.faint
            }
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: panel.filter.kind.currentIndex = model.choice
            }
        }
    }
}
