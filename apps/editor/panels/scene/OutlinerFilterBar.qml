import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// Which types of objects show, and whether only those that need attention do.
Rectangle {
    property var outliner
    readonly property var filter: outliner.filter

    implicitHeight: Theme.barHeight
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        anchors.bottomMargin: 4
        spacing: 2

        Repeater {
            model: [
                { icon: "actor", tip: qsTr("Only actors") },
                { icon: "lamp", tip: qsTr("Only lights") },
                { icon: "flag", tip: qsTr("Only spawn points") },
                { icon: "path", tip: qsTr("Only paths") }
            ]
            IconButton {
                objectName: "only-" + modelData.icon
                checkable: true
                checked: filter.type.currentIndex === index
                icon.name: modelData.icon
                tip: modelData.tip
                onToggled: {
                    filter.type.currentIndex = checked ? index : -1
                    checked = Qt.binding(() => filter.type.currentIndex === index)
                }
            }
        }
        Item { Layout.fillWidth: true }
        IconButton {
            objectName: "onlyModified"
            checkable: true
            checked: filter.onlyModified.isOn
            icon.name: "modified"
            tip: qsTr("Only what differs from the saved level")
            onToggled: filter.onlyModified.isOn = checked
        }
        IconButton {
            objectName: "onlyProblems"
            checkable: true
            checked: filter.onlyProblems.isOn
            icon.name: "warning"
            tip: qsTr("Only what has a problem")
            onToggled: filter.onlyProblems.isOn = checked
        }
        IconButton {
            objectName: "clear"
            enabled: filter.isActive
            icon.name: "clear"
            tip: qsTr("Ends all filters")
            onClicked: filter.clear()
        }
    }
}
