import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0
import "../history"

FocusScope {
    id: scene

    property var panel
    readonly property bool isNarrow: width < 1100

    focus: true

    HistoryShortcuts {
        document: panel.document
    }
    Shortcut {
        sequence: "Ctrl+F"
        enabled: scene.visible
        onActivated: outliner.focusFilter()
    }
    Shortcut {
        sequence: "F5"
        enabled: scene.visible
        onActivated: panel.document.askToReload()
    }
    MessageBar {
        id: message

        width: parent.width
        text: panel.document.message
        onDismissed: panel.document.dismissMessage()
    }
    Panes {
        anchors.top: message.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: panel.hasScene

        OutlinerPane {
            id: outliner

            T.SplitView.preferredWidth: scene.isNarrow ? 270 : 350
            T.SplitView.minimumWidth: 200
            focus: true
            panel: scene.panel
        }
        Panes {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 180
            orientation: Qt.Vertical

            MapPane {
                T.SplitView.fillHeight: true
                T.SplitView.minimumHeight: 120
                panel: scene.panel
            }
            HistoryPane {
                T.SplitView.preferredHeight: scene.height * 0.28
                T.SplitView.minimumHeight: 90
                document: panel.document
            }
        }
        SelectionPane {
            T.SplitView.preferredWidth: scene.isNarrow ? 300 : 380
            T.SplitView.minimumWidth: 240
            panel: scene.panel
        }
    }
    EmptyState {
        objectName: "noScene"
        visible: !panel.hasScene
        iconName: "level"
        text: qsTr("No level of this project has a scene.\nIt would be the file scene.json in a folder of levels.")
    }
}
