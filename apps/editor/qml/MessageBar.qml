import QtQuick 2.15
import Editor 1.0

// What went wrong, above what it is about, until it is put away.
Rectangle {
    id: bar

    property alias text: label.text
    signal dismissed

    objectName: "message"
    visible: text
    height: visible ? Math.max(Theme.barHeight, label.implicitHeight + 12) : 0
    color: "#3a2526"

    Rectangle {
        width: 3
        height: parent.height
        color: Theme.bad
    }
    Icon {
        id: icon

        x: 12
        y: 7
        name: "warning"
        color: Theme.bad
    }
    Label {
        id: label

        anchors.left: icon.right
        anchors.leftMargin: Theme.margin
        anchors.right: button.left
        anchors.rightMargin: Theme.margin
        height: parent.height
        wrapMode: Text.Wrap
        elide: Text.ElideNone
    }
    IconButton {
        id: button

        objectName: "dismiss"
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        y: 3
        icon.name: "clear"
        tip: qsTr("Put the message away")
        onClicked: bar.dismissed()
    }
}
