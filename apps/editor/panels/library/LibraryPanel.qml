import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

FocusScope {
    id: library

    property var panel

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: words.forceActiveFocus() }
    Shortcut { sequence: StandardKey.Refresh; enabled: visible; onActivated: panel.reload() }

    ColumnLayout {
        anchors.fill: parent
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

                Label {
                    text: qsTr("Group by")
                    color: Theme.faint
                }
                SegmentedSwitch {
                    labels: [qsTr("Kind"), qsTr("Folder"), qsTr("Extension")]
                    currentIndex: panel.groups.by
                    onChosen: panel.groups.by = index
                }
                SearchField {
                    id: words

                    objectName: "words"
                    Layout.fillWidth: true
                    Layout.maximumWidth: 360
                    placeholderText: qsTr("Words in name, path or kind")
                    tip: qsTr("Shows the assets that have all of these words (Ctrl+F)")
                    text: panel.words.text
                    onTextEdited: panel.words.text = text
                    Keys.onDownPressed: tree.forceActiveFocus()
                    onAccepted: tree.forceActiveFocus()
                }
                Item { Layout.fillWidth: true }
                IconButton {
                    objectName: "expandAll"
                    icon.name: "expand-all"
                    tip: qsTr("Expand all")
                    onClicked: panel.rows.expandAll()
                }
                IconButton {
                    objectName: "collapseAll"
                    icon.name: "collapse-all"
                    tip: qsTr("Collapse all")
                    onClicked: panel.rows.collapseAll()
                }
                IconButton {
                    objectName: "reload"
                    icon.name: "reload"
                    tip: qsTr("Look at the disk now (F5)")
                    onClicked: panel.reload()
                }
            }
        }
        LibraryTree {
            id: tree

            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            panel: library.panel
        }
    }
}
