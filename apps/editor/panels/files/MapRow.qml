import QtQuick 2.15
import Editor 1.0

// A box and a name; a click anywhere in the row ticks it.
Rectangle {
    id: row

    property string text
    property bool isChecked: false
    property bool isPartly: false
    property bool isCurrent: false
    signal toggled

    height: Theme.rowHeight
    color: area.containsMouse || isCurrent ? Theme.hover : "transparent"

    Rectangle {
        id: box

        x: Theme.margin
        anchors.verticalCenter: parent.verticalCenter
        width: 14
        height: 14
        radius: Theme.radius
        color: row.isChecked || row.isPartly ? Qt.darker(Theme.accent, 1.5) : Theme.field
        border.color: row.isChecked || row.isPartly ? Theme.accent : Theme.outline

        Icon {
            anchors.centerIn: parent
            visible: row.isChecked
            size: 12
            name: "tick"
            color: Theme.accentText
        }
        Rectangle {
            anchors.centerIn: parent
            visible: row.isPartly
            width: 8
            height: 2
            color: Theme.accentText
        }
    }
    Label {
        anchors.left: box.right
        anchors.leftMargin: 6
        anchors.right: parent.right
        height: parent.height
        elide: Text.ElideRight
        text: row.text
    }
    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: row.toggled()
    }
}
