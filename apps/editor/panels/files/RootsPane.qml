import QtQuick 2.15
import Editor 1.0

// The folders of the project side by side, and the scan of one of them.
FocusScope {
    id: pane

    property var panel
    readonly property var scan: panel.scan

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    PaneTitle {
        id: heading

        width: parent.width
        text: qsTr("Folders")
        Row {
            anchors.right: parent.right
            anchors.rightMargin: 2
            anchors.verticalCenter: parent.verticalCenter

            IconButton {
                objectName: "scanCurrent"
                implicitHeight: Theme.rowHeight
                icon.name: "search"
                tip: qsTr("Reads this folder with all beneath it, for the search")
                onClicked: panel.scanCurrent()
            }
            IconButton {
                objectName: "scanProject"
                implicitHeight: Theme.rowHeight
                icon.name: "everything"
                tip: qsTr("Reads the whole project, for the search")
                onClicked: panel.scanProject()
            }
            IconButton {
                objectName: "reload"
                implicitHeight: Theme.rowHeight
                icon.name: "reload"
                tip: qsTr("Looks at the disk again (F5)")
                onClicked: panel.reload()
            }
        }
    }
    TreeList {
        objectName: "folders"
        anchors.top: heading.bottom
        anchors.bottom: progress.top
        width: parent.width
        focus: true
        rows: panel.roots.rows
        cursor: panel.roots.cursor

        delegate: TreeRow {
            id: row

            TreeCell {
                readonly property string kind: panel.iconOf(model.filePath, !model.isFile)

                width: row.width - Theme.scrollWidth
                height: parent.height
                level: model.level
                isExpandable: model.isExpandable
                isExpanded: model.isExpanded
                iconName: kind
                iconColor: Theme.kindColors[kind]
                text: model.displayName
                onToggled: row.toggle()
            }
        }
    }
    Rectangle {
        id: progress

        anchors.bottom: parent.bottom
        width: parent.width
        height: Theme.barHeight
        color: Theme.pane

        Label {
            objectName: "progress"
            anchors.left: parent.left
            anchors.leftMargin: Theme.margin
            anchors.right: cancel.left
            height: parent.height
            elide: Text.ElideRight
            font: Theme.smallFont
            color: scan.isRunning ? Theme.pending : Theme.secondary
            text: scan.progress
        }
        IconButton {
            id: cancel

            objectName: "cancelScan"
            anchors.right: parent.right
            anchors.rightMargin: 2
            anchors.verticalCenter: parent.verticalCenter
            visible: scan.isRunning
            icon.name: "clear"
            tip: qsTr("Stops reading; folders are read when the search gets there")
            onClicked: scan.cancel()
        }
    }
}
