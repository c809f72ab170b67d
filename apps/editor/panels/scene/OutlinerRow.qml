import QtQuick 2.15
import Editor 1.0

// One object: its name under its group, its marks, and its buttons.
Rectangle {
    id: row

    property var outliner
    readonly property ListView list: ListView.view
    readonly property bool isCurrent: index === list.cursor.row
    readonly property bool isSelected: model.isSelected
    readonly property bool isHovered: model.hoverRole

    objectName: "row-" + model.name
    width: list.width
    height: Theme.rowHeight
    color: isSelected ? (list.activeFocus ? Theme.selection : Theme.selectionInactive)
           : isHovered ? Theme.hover : "transparent"
    border.width: isCurrent && list.activeFocus ? 1 : 0
    border.color: Theme.accent

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onContainsMouseChanged: outliner.hover(index, containsMouse)
        onPressed: {
            list.forceActiveFocus()
            outliner.press(index, mouse.modifiers)
        }
        onDoubleClicked: outliner.frame(index)
    }
    TreeCell {
        id: cell

        anchors.left: parent.left
        anchors.right: marks.left
        height: parent.height
        level: model.level
        isExpandable: model.isExpandable
        isExpanded: model.isExpanded
        iconName: model.icon
        iconColor: model.enabled ? Theme.sceneColors[model.icon] || Theme.secondary : Theme.outline
        text: model.name
        needles: outliner.filter.needles
        color: model.enabled ? Theme.text : Theme.faint
        onToggled: outliner.toggle(index)
    }
    Row {
        id: marks

        anchors.right: buttons.left
        anchors.rightMargin: 2
        height: parent.height
        spacing: 5

        Icon {
            objectName: "problem"
            anchors.verticalCenter: parent.verticalCenter
            visible: model.state > 0
            size: 14
            name: "warning"
            color: Theme.pending

            MouseArea {
                id: problemArea

                anchors.fill: parent
                hoverEnabled: true
                acceptedButtons: Qt.NoButton
            }
            Tip {
                visible: problemArea.containsMouse
                text: model.problem
            }
        }
        Rectangle {
            objectName: "modified"
            anchors.verticalCenter: parent.verticalCenter
            visible: model.modified
            width: 6
            height: 6
            radius: 3
            color: Theme.pending
        }
    }
    RowButtons {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: Theme.scrollWidth
        height: parent.height
        buttons: model.rowButtonsModel
        isActive: row.isHovered || row.isSelected
        onPressed: outliner.pressButton(index, button, alt)
    }
}
