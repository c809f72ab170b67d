import QtQuick 2.15
import Editor 1.0

// One of the trees, with its title. With Control a click adds to the selection or takes away.
FocusScope {
    id: tree

    property string title
    property var pane
    property var needles: []
    readonly property int kindWidth: width < 420 ? 0 : 90
    readonly property int sizeWidth: 76

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    PaneTitle {
        id: heading

        width: parent.width
        text: tree.title
    }
    TreeList {
        objectName: tree.objectName + "-rows"
        anchors.top: heading.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        rows: pane.rows
        cursor: pane.cursor

        delegate: TreeRow {
            id: row

            readonly property int place: index

            function followSelection() { isSelected = tree.pane.isSelected(index) }
            onPlaceChanged: followSelection()
            Component.onCompleted: followSelection()
            Connections {
                target: tree.pane
                function onSelectionChanged() { row.followSelection() }
            }
            function pick(isToggling) { tree.pane.press(index, isToggling) }

            TreeCell {
                width: row.width - tree.kindWidth - tree.sizeWidth - Theme.scrollWidth
                height: parent.height
                level: model.level
                isExpandable: model.isExpandable
                isExpanded: model.isExpanded
                iconName: model.icon
                iconColor: Theme.kindColors[model.icon] || Theme.secondary
                text: model.name
                needles: tree.needles
                onToggled: row.toggle()
            }
            Label {
                width: tree.kindWidth
                visible: width > 0
                height: parent.height
                text: model.kind || ""
                color: Theme.secondary
            }
            Label {
                width: tree.sizeWidth
                height: parent.height
                rightPadding: Theme.margin
                horizontalAlignment: Text.AlignRight
                text: model.count !== undefined ? model.count : model.sizeText || ""
                color: Theme.secondary
            }
        }
    }
}
