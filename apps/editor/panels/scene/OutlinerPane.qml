import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// The objects of the level with what can be done to each; above them the filter, and what can be added.
FocusScope {
    id: pane

    property var panel
    readonly property var outliner: panel.outliner

    function focusFilter() { bar.focusText() }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        OutlinerBar {
            id: bar

            Layout.fillWidth: true
            outliner: pane.outliner
            document: panel.document
            onLeft: tree.forceActiveFocus()
        }
        OutlinerFilterBar {
            Layout.fillWidth: true
            outliner: pane.outliner
        }
        TreeList {
            id: tree

            objectName: "tree"
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            rows: pane.outliner.rows
            cursor: pane.outliner.cursor

            takeKey: event => {
                if (event.key === Qt.Key_Delete)
                    outliner.remove()
                else if (event.key === Qt.Key_A && event.modifiers & Qt.ControlModifier)
                    outliner.selectAll()
                else if (event.key === Qt.Key_Escape)
                    outliner.clearSelection()
                else
                    return outliner.navigate(event.key, event.modifiers, pageRows)
                return true
            }

            delegate: OutlinerRow {
                outliner: pane.outliner
            }

            EmptyState {
                objectName: "empty"
                visible: pane.outliner.isEmpty
                text: pane.outliner.filter.isActive ? qsTr("No object passes the filter") : qsTr("The level has no objects yet")
                actionText: pane.outliner.filter.isActive ? qsTr("Clear the filter") : ""
                onAction: pane.outliner.filter.clear()
            }
        }
    }
}
