import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The tabs of the window. `list` holds objects with a title and an icon.
Rectangle {
    id: strip

    property var list: []
    property int currentIndex: 0
    signal chosen(int index)

    readonly property bool isTight: width < list.length * 90

    implicitHeight: Theme.barHeight
    color: Theme.line

    Row {
        height: parent.height
        Repeater {
            model: strip.list
            T.AbstractButton {
                id: tab

                readonly property bool isCurrent: index === strip.currentIndex

                objectName: "tab-" + modelData.name
                width: content.implicitWidth + (strip.isTight ? 12 : 28)
                height: strip.height
                hoverEnabled: true
                onClicked: strip.chosen(index)

                background: Rectangle {
                    color: tab.isCurrent ? Theme.pane : tab.hovered ? Theme.window : "transparent"
                    Rectangle {
                        width: parent.width
                        height: 2
                        visible: tab.isCurrent
                        color: Theme.accent
                    }
                }
                contentItem: Item {
                    Row {
                        id: content

                        anchors.centerIn: parent
                        spacing: 7
                        Icon {
                            anchors.verticalCenter: parent.verticalCenter
                            name: modelData.icon
                            color: tab.isCurrent ? Theme.accent : Theme.faint
                        }
                        Label {
                            anchors.verticalCenter: parent.verticalCenter
                            text: modelData.title
                            color: tab.isCurrent ? Theme.text : Theme.secondary
                        }
                        Rectangle {
                            objectName: "modifiedMark"
                            anchors.verticalCenter: parent.verticalCenter
                            visible: modelData.panel ? modelData.panel.isModified : false
                            width: 7
                            height: 7
                            radius: 4
                            color: Theme.pending
                        }
                    }
                }
            }
        }
    }
}
