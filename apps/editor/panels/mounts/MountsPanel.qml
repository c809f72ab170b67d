import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

FocusScope {
    id: mounts

    property var panel

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: words.forceActiveFocus() }
    Shortcut { sequence: StandardKey.Refresh; enabled: visible; onActivated: panel.reload() }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        PathBar {
            Layout.fillWidth: true
            panel: mounts.panel
        }
        Panes {
            Layout.fillWidth: true
            Layout.fillHeight: true

            MountTree {
                T.SplitView.preferredWidth: mounts.width * 0.45
                T.SplitView.minimumWidth: 260
                objectName: "whole"
                focus: true
                title: panel.isBranchOnly ? qsTr("This branch only") : qsTr("Everything")
                pane: panel.isBranchOnly ? panel.branch : panel.whole
            }
            ColumnLayout {
                T.SplitView.fillWidth: true
                T.SplitView.minimumWidth: 260
                spacing: 0

                Rectangle {
                    Layout.fillWidth: true
                    implicitHeight: Theme.barHeight + 4
                    color: Theme.pane
                    SearchField {
                        id: words

                        objectName: "words"
                        anchors.fill: parent
                        anchors.margins: 5
                        placeholderText: qsTr("Words in name, path or kind")
                        tip: qsTr("Shows the rows that have all of these words (Ctrl+F)")
                        text: panel.words
                        onTextEdited: panel.words = text
                        Keys.onDownPressed: found.forceActiveFocus()
                        onAccepted: found.forceActiveFocus()
                    }
                }
                MountTree {
                    id: found

                    objectName: "found"
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    title: panel.words ? qsTr("With these words") : qsTr("Everything, to be filtered")
                    pane: panel.filtered
                    needles: panel.needles

                    EmptyState {
                        objectName: "empty"
                        visible: panel.isFilterEmpty
                        text: qsTr("No row has these words")
                        actionText: qsTr("Clear the words")
                        onAction: panel.words = ""
                    }
                }
            }
        }
    }
}
