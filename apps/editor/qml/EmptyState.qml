import QtQuick 2.15
import Editor 1.0

// What stands in place of rows: why there are none, and what to do about it.
Column {
    property alias iconName: icon.name
    property alias text: label.text
    property alias actionText: button.text
    signal action

    anchors.centerIn: parent
    spacing: 12

    Icon {
        id: icon

        anchors.horizontalCenter: parent.horizontalCenter
        name: "nothing"
        size: 40
        color: Theme.outline
    }
    Label {
        id: label

        anchors.horizontalCenter: parent.horizontalCenter
        horizontalAlignment: Text.AlignHCenter
        color: Theme.secondary
    }
    PushButton {
        id: button

        objectName: "emptyAction"
        anchors.horizontalCenter: parent.horizontalCenter
        visible: text
        onClicked: parent.action()
    }
}
