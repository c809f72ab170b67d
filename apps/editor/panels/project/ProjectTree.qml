import QtQuick 2.15
import Editor 1.0

// The tree with its header. Widths stand here once, for the header and the rows.
FocusScope {
    id: tree

    property var panel
    readonly property var filter: panel.filter
    readonly property int kindWidth: width < 460 ? 0 : 110
    readonly property int sizeWidth: 86
    readonly property int modifiedWidth: width < 600 ? 0 : 140
    readonly property int nameWidth: width - kindWidth - sizeWidth - modifiedWidth - Theme.scrollWidth

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    Rectangle {
        width: parent.width
        height: header.height
        color: Theme.raised
    }
    Row {
        id: header

        width: parent.width
        Repeater {
            model: [
                { title: qsTr("Name"), role: "name", width: tree.nameWidth, alignment: Text.AlignLeft },
                { title: qsTr("Kind"), role: "kind", width: tree.kindWidth, alignment: Text.AlignLeft },
                { title: qsTr("Size"), role: "size", width: tree.sizeWidth, alignment: Text.AlignRight },
                { title: qsTr("Modified"), role: "modified", width: tree.modifiedWidth, alignment: Text.AlignLeft }
            ]
            HeaderCell {
                width: modelData.width
                visible: width > 0
                text: modelData.title
                role: modelData.role
                alignment: modelData.alignment
                sortedBy: filter.sortedBy
                isDescending: filter.isDescending
                onClicked: filter.sortOrTurn(role)
            }
        }
    }
    TreeList {
        id: list

        objectName: "tree"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        rows: panel.rows
        cursor: panel.cursor

        delegate: TreeRow {
            id: row

            TreeCell {
                width: tree.nameWidth
                height: parent.height
                level: model.level
                isExpandable: model.isExpandable
                isExpanded: model.isExpanded
                iconName: model.icon
                iconColor: Theme.kindColors[model.icon]
                text: model.name
                needles: filter.needles
                onToggled: row.toggle()
            }
            Label {
                width: tree.kindWidth
                visible: width > 0
                height: parent.height
                leftPadding: Theme.margin
                text: model.kind
                color: Theme.secondary
            }
            Label {
                width: tree.sizeWidth
                height: parent.height
                rightPadding: Theme.margin
                horizontalAlignment: Text.AlignRight
                text: model.sizeText
                color: Theme.secondary
            }
            Label {
                width: tree.modifiedWidth
                visible: width > 0
                height: parent.height
                leftPadding: Theme.margin
                text: model.modifiedText
                color: Theme.secondary
            }
        }
    }
    EmptyState {
        objectName: "empty"
        visible: panel.isEmpty
        text: panel.emptyReason
        actionText: filter.isActive ? qsTr("Clear filters") : ""
        onAction: filter.clear()
    }
}
