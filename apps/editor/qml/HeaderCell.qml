import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The head of a column; a click asks for sorting by its role.
T.AbstractButton {
    id: header

    property string sortedBy
    property bool isDescending: false
    property string role
    property int alignment: Text.AlignLeft
    readonly property bool isSorted: role === sortedBy

    objectName: "header-" + role
    implicitHeight: Theme.rowHeight
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    focusPolicy: Qt.NoFocus
    hoverEnabled: true

    background: Rectangle {
        color: header.down ? Theme.field : header.hovered ? Theme.outline : Theme.raised
        Rectangle {
            anchors.right: parent.right
            width: 1
            height: parent.height
            color: Theme.line
        }
    }
    contentItem: Row {
        spacing: 2
        layoutDirection: header.alignment === Text.AlignRight ? Qt.RightToLeft : Qt.LeftToRight
        Label {
            height: header.height
            text: header.text
            font: Theme.smallFont
            color: header.isSorted ? Theme.text : Theme.secondary
        }
        Icon {
            anchors.verticalCenter: parent.verticalCenter
            visible: header.isSorted
            size: 12
            name: header.isDescending ? "sort-down" : "sort-up"
            color: Theme.accent
        }
    }
}
