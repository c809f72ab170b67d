import QtQuick 2.15
import Editor 1.0

// The head of an object or a collection: opens and closes what is below it, tells how many elements there are and adds one.
Item {
    id: heading

    property var line
    property var rows
    property var pane

    implicitHeight: Theme.controlHeight

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -2
        radius: Theme.radius
        color: area.containsMouse ? Theme.outline : Theme.raised
    }
    MouseArea {
        id: area

        objectName: "heading-" + line.path
        anchors.fill: parent
        hoverEnabled: true
        onClicked: rows.toggle(line.index)
    }
    Icon {
        x: 3
        anchors.verticalCenter: parent.verticalCenter
        size: 14
        name: line.isOpen ? "arrow-down" : "arrow-right"
        color: Theme.secondary
    }
    Label {
        x: 22
        height: parent.height
        text: line.label
        font: Theme.strongFont
        color: line.isReadOnly && line.canRemove ? Theme.secondary : Theme.text
    }
    Label {
        anchors.right: parent.right
        anchors.rightMargin: addButton.visible || line.canRemove ? 34 : Theme.margin
        height: parent.height
        text: line.isMixed ? "\u2014" : line.value !== undefined ? line.value : ""
        font: Theme.smallFont
        color: Theme.secondary
    }
    IconButton {
        id: addButton

        objectName: "add-" + line.path
        anchors.right: parent.right
        visible: line.canAdd
        icon.name: "add"
        tip: qsTr("Add an element")
        onClicked: line.choices.length > 1 ? classes.open() : rows.add(line.index)

        DropList {
            id: classes

            x: parent.width - width
            choices: line.choices
            onChosen: rows.add(line.index, choice)
        }
    }
}
