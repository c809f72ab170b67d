import QtQuick 2.15
import Editor 1.0
import Editor.Items 1.0

Rectangle {
    id: row

    property var panel
    property int nameWidth
    property int placeWidth
    property int sizeWidth
    property bool isCurrent: false
    property bool isActive: false
    readonly property string kind: model.absolutePath === undefined ? "document" : panel.iconOf(model.absolutePath, model.isDirectory)
    readonly property var matches: model.searchInfo && model.display
                                   ? model.searchInfo.ranges.map(range => model.display.substr(range.start, range.length)) : []
    signal picked

    height: Theme.rowHeight
    color: isCurrent ? (isActive ? Theme.selection : Theme.selectionInactive) : area.containsMouse ? Theme.hover : "transparent"

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onPressed: row.picked()
    }
    Icon {
        id: icon

        x: Theme.margin
        anchors.verticalCenter: parent.verticalCenter
        name: row.kind
        color: Theme.kindColors[row.kind]
    }
    MatchText {
        anchors.left: icon.right
        anchors.leftMargin: 6
        width: row.nameWidth - x - Theme.margin
        height: parent.height
        text: model.display || qsTr("(gone)")
        needles: row.matches
        font: Theme.font
        color: model.display ? Theme.text : Theme.faint
        matchColor: Theme.match
        matchBackground: Theme.matchBackground
    }
    Label {
        x: row.nameWidth
        width: row.placeWidth
        height: parent.height
        visible: width > 0
        leftPadding: Theme.margin
        rightPadding: Theme.margin
        elide: Text.ElideMiddle
        text: model.path ? panel.placeOf(model.path) : ""
        color: Theme.secondary
    }
    Label {
        x: row.nameWidth + row.placeWidth
        width: row.sizeWidth
        height: parent.height
        horizontalAlignment: Text.AlignRight
        text: model.isDirectory === false ? panel.sizeText(model.size) : ""
        color: Theme.secondary
    }
}
