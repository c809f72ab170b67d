import QtQuick 2.15
import Editor 1.0

// Groups and their assets. A group shows a value where all of its assets have the same.
FocusScope {
    id: tree

    property var panel
    readonly property var columns: [
        { title: qsTr("Name"), role: "name", shown: "name", width: nameWidth },
        { title: qsTr("Assets"), role: "count", shown: "count", width: 70, isNumber: true },
        { title: qsTr("Kind"), role: "kind", shown: "kind", width: 110 },
        { title: qsTr("Folder"), role: "folder", shown: "folder", width: 220 },
        { title: qsTr("Size"), role: "size", shown: "sizeText", width: 86, isNumber: true },
        { title: qsTr("Modified"), role: "modified", shown: "modifiedText", width: 140 }
    ]
    readonly property int nameWidth: width - 70 - 110 - 220 - 86 - 140 - Theme.scrollWidth

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
            model: tree.columns
            HeaderCell {
                width: modelData.width
                text: modelData.title
                role: modelData.role
                alignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
                sortedBy: panel.sortedBy
                isDescending: panel.isDescending
                onClicked: panel.sortOrTurn(role)
            }
        }
    }
    TreeList {
        objectName: "tree"
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        rows: panel.rows
        cursor: panel.cursor

        delegate: TreeRow {
            id: row

            readonly property var values: model

            TreeCell {
                width: tree.nameWidth
                height: parent.height
                level: model.level
                isExpandable: model.isExpandable
                isExpanded: model.isExpanded
                iconName: model.icon
                iconColor: Theme.kindColors[model.icon] || Theme.secondary
                text: model.name
                needles: panel.needles
                onToggled: row.toggle()
            }
            Repeater {
                model: tree.columns.slice(1)
                Label {
                    readonly property var value: row.values[modelData.shown]

                    width: modelData.width
                    height: row.height
                    leftPadding: Theme.margin
                    rightPadding: Theme.margin
                    horizontalAlignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
                    elide: modelData.role === "folder" ? Text.ElideLeft : Text.ElideRight
                    text: value !== undefined ? value : row.values.isGroup ? "\u2013" : ""
                    color: value === undefined ? Theme.faint : Theme.secondary
                }
            }
        }
    }
    EmptyState {
        objectName: "empty"
        visible: panel.isEmpty
        text: panel.emptyReason
        actionText: panel.words.text ? qsTr("Clear the words") : ""
        onAction: panel.words.text = ""
    }
}
