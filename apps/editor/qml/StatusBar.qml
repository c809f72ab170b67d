import QtQuick 2.15
import Editor 1.0

Rectangle {
    property alias text: left.text
    property alias place: right.text

    implicitHeight: Theme.rowHeight + 2
    color: Theme.raised
    Label {
        id: left

        objectName: "status"
        anchors.left: parent.left
        anchors.leftMargin: Theme.margin
        height: parent.height
        font: Theme.smallFont
    }
    Label {
        id: right

        anchors.left: left.right
        anchors.leftMargin: 40
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: parent.height
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideLeft
        font: Theme.smallFont
        color: Theme.faint
    }
}
