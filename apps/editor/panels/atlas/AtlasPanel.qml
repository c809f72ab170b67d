import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0
import "../history"

FocusScope {
    id: atlas

    property var panel
    readonly property var document: panel.document
    readonly property bool isNarrow: width < 1100

    focus: true

    HistoryShortcuts {
        document: atlas.document
    }
    Shortcut {
        sequence: StandardKey.Refresh
        enabled: atlas.visible
        onActivated: document.askToReload()
    }
    MessageBar {
        id: message

        width: parent.width
        text: document.message
        onDismissed: document.dismissMessage()
    }
    Panes {
        anchors.top: message.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        visible: panel.hasAtlas

        ColumnLayout {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 360
            spacing: 0

            AtlasBar {
                Layout.fillWidth: true
                panel: atlas.panel
            }
            AtlasGrid {
                objectName: "grid"
                Layout.fillWidth: true
                Layout.fillHeight: true
                focus: true
                panel: atlas.panel
            }
            ProblemsPane {
                Layout.fillWidth: true
                panel: atlas.panel
            }
        }
        Panes {
            T.SplitView.preferredWidth: atlas.isNarrow ? 280 : 360
            T.SplitView.minimumWidth: 220
            orientation: Qt.Vertical

            AtlasForm {
                T.SplitView.fillHeight: true
                T.SplitView.minimumHeight: 120
                panel: atlas.panel
            }
            HistoryPane {
                T.SplitView.preferredHeight: atlas.height * 0.36
                T.SplitView.minimumHeight: 90
                document: atlas.document
            }
        }
    }
    EmptyState {
        objectName: "noAtlas"
        visible: !panel.hasAtlas
        iconName: "atlas"
        text: document.path ? qsTr("%1 cannot be shown").arg(document.path)
                            : qsTr("This project has no atlas.\nIt would be three files, name_AM.atlas and its companions.")
    }
}
