import QtQuick 2.15
import Editor 1.0

// A line that explains why things are as they are.
Rectangle {
    property alias iconName: icon.name
    property alias text: label.text

    implicitHeight: Theme.rowHeight
    color: Theme.raised
    Icon {
        id: icon

        x: Theme.margin + 1
        anchors.verticalCenter: parent.verticalCenter
        size: 14
        color: Theme.pending
    }
    Label {
        id: label

        anchors.left: icon.right
        anchors.leftMargin: Theme.margin
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: parent.height
        font: Theme.smallFont
        color: Theme.secondary
    }
}
