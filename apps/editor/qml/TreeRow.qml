import QtQuick 2.15
import Editor 1.0

// The delegate of a TreeList: background, selection and clicks; what is written in it stands side by side.
Rectangle {
    id: row

    readonly property TreeList list: ListView.view
    readonly property bool isCurrent: index === list.cursor.row
    property bool isSelected: isCurrent
    default property alias cells: cells.data

    function pick(isToggling) { list.cursor.row = index }
    function toggle() { list.rows.toggle(index) }

    width: list.width
    height: Theme.rowHeight
    color: isSelected ? (list.activeFocus ? Theme.selection : Theme.selectionInactive)
           : area.containsMouse ? Theme.hover : "transparent"

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onPressed: {
            list.forceActiveFocus()
            row.pick(mouse.modifiers & Qt.ControlModifier)
        }
        onDoubleClicked: row.toggle()
    }
    Row {
        id: cells

        anchors.fill: parent
    }
}
