import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A few labels of which one is chosen. It tells a click and leaves it to the binding of `currentIndex` to follow.
Rectangle {
    id: segments

    property var labels: []
    property var tips: []
    property int currentIndex: 0
    signal chosen(int index)

    implicitWidth: row.implicitWidth + 4
    implicitHeight: Theme.controlHeight
    radius: Theme.radius
    color: Theme.field
    border.color: Theme.raised

    Row {
        id: row

        anchors.centerIn: parent
        Repeater {
            model: segments.labels
            T.AbstractButton {
                id: segment

                readonly property bool isCurrent: index === segments.currentIndex

                objectName: modelData
                width: Math.max(34, label.implicitWidth + 2 * Theme.margin)
                height: Theme.controlHeight - 4
                hoverEnabled: true
                onClicked: segments.chosen(index)

                background: Rectangle {
                    radius: Theme.radius - 1
                    color: segment.isCurrent ? Theme.outline : segment.hovered ? Theme.raised : "transparent"
                    border.color: Theme.accent
                    border.width: segment.visualFocus ? 1 : 0
                }
                contentItem: Label {
                    id: label

                    text: modelData
                    horizontalAlignment: Text.AlignHCenter
                    color: segment.isCurrent ? Theme.text : Theme.secondary
                }
                Tip {
                    visible: segment.hovered && text
                    text: segments.tips[index] || ""
                }
            }
        }
    }
}
