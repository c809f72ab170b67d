import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

FocusScope {
    id: graph

    property var panel
    readonly property var document: panel.document

    focus: true

    Panes {
        anchors.fill: parent

        PalettePane {
            T.SplitView.preferredWidth: 180
            T.SplitView.minimumWidth: 110
            document: graph.document
            canvas: view
        }
        ColumnLayout {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 440
            spacing: 0

            Rectangle {
                Layout.fillWidth: true
                implicitHeight: Theme.barHeight + 4
                color: Theme.pane
                RowLayout {
                    anchors.fill: parent
                    anchors.leftMargin: Theme.margin
                    anchors.rightMargin: Theme.margin
                    spacing: Theme.spacing

                    IconButton {
                        objectName: "selectAll"
                        icon.name: "everything"
                        text: qsTr("Select all")
                        tip: qsTr("Selects all nodes and wires (Ctrl+A)")
                        onClicked: graph.document.selectAll()
                    }
                    IconButton {
                        objectName: "removeSelected"
                        enabled: graph.document.selectedCount > 0
                        icon.name: "trash"
                        text: qsTr("Delete")
                        tip: qsTr("Deletes what is selected, and the wires of deleted nodes (Delete)")
                        onClicked: graph.document.removeSelected()
                    }
                    Item { Layout.fillWidth: true }
                    Label {
                        objectName: "zoom"
                        text: Math.round(view.zoom * 100) + " %"
                        color: Theme.secondary
                    }
                    IconButton {
                        objectName: "fit"
                        icon.name: "fit"
                        text: qsTr("Fit")
                        tip: qsTr("Brings all nodes into view (F)")
                        onClicked: view.fit()
                    }
                }
            }
            GraphCanvas {
                id: view

                objectName: "canvas"
                Layout.fillWidth: true
                Layout.fillHeight: true
                focus: true
                document: graph.document
            }
        }
    }
}
