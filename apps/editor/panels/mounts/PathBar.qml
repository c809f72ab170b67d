import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// The way from the top to the current row; a click on an entry goes there.
Rectangle {
    id: bar

    property var panel

    implicitHeight: Theme.barHeight + 4
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin - 4
        anchors.rightMargin: Theme.margin
        spacing: Theme.spacing

        Row {
            Layout.fillWidth: true
            clip: true

            IconButton {
                objectName: "crumb-top"
                icon.name: "mounts"
                text: qsTr("Everything")
                onClicked: panel.goTo(-1)
            }
            Repeater {
                model: panel.path
                Row {
                    Icon {
                        anchors.verticalCenter: parent.verticalCenter
                        size: 12
                        name: "arrow-right"
                        color: Theme.faint
                    }
                    IconButton {
                        objectName: "crumb-" + model.name
                        icon.name: model.icon
                        text: model.name
                        onClicked: panel.goTo(index)
                    }
                }
            }
        }
        IconButton {
            objectName: "branchOnly"
            enabled: panel.hasCurrent || panel.isBranchOnly
            checkable: true
            checked: panel.isBranchOnly
            icon.name: "branch"
            text: qsTr("Show only this branch")
            tip: qsTr("Shows the rows below the current one alone")
            onToggled: {
                panel.isBranchOnly = checked
                checked = Qt.binding(() => panel.isBranchOnly)
            }
        }
        IconButton {
            objectName: "reload"
            icon.name: "reload"
            tip: qsTr("Look at the disk now (F5)")
            onClicked: panel.reload()
        }
    }
}
