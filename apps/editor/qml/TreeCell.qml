import QtQuick 2.15
import Editor 1.0
import Editor.Items 1.0

// The first column of a tree's row: guides for its depth, the arrow, the icon and the name with what matches in it.
Item {
    id: cell

    property int level: 0
    property bool isExpandable: false
    property bool isExpanded: false
    property string iconName
    property color iconColor: Theme.secondary
    property string text
    property var needles: []
    property color color: Theme.text
    signal toggled

    clip: true

    Repeater {
        model: cell.level
        Rectangle {
            x: index * Theme.indent + 15
            width: 1
            height: cell.height
            color: Theme.guide
        }
    }
    Item {
        id: arrow

        objectName: "arrow"
        x: cell.level * Theme.indent + 4
        width: 20
        height: cell.height
        Icon {
            anchors.centerIn: parent
            visible: cell.isExpandable
            size: 14
            name: cell.isExpanded ? "arrow-down" : "arrow-right"
            color: arrowArea.containsMouse ? Theme.text : Theme.faint
        }
        MouseArea {
            id: arrowArea

            anchors.fill: parent
            enabled: cell.isExpandable
            hoverEnabled: true
            onClicked: cell.toggled()
        }
    }
    Icon {
        id: icon

        anchors.left: arrow.right
        anchors.leftMargin: 1
        anchors.verticalCenter: parent.verticalCenter
        name: cell.iconName
        color: cell.iconColor
    }
    MatchText {
        anchors.left: icon.right
        anchors.leftMargin: 6
        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: cell.height
        text: cell.text
        needles: cell.needles
        font: Theme.font
        color: cell.color
        matchColor: Theme.match
        matchBackground: Theme.matchBackground
    }
}
