import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

FocusScope {
    id: project

    property var panel

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: filters.focusText() }
    Shortcut { sequence: StandardKey.Refresh; enabled: visible; onActivated: panel.reload() }

    Panes {
        anchors.fill: parent

        KindPane {
            T.SplitView.preferredWidth: 180
            T.SplitView.minimumWidth: 110
            panel: project.panel
        }
        ColumnLayout {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 440
            spacing: 0

            FilterBar {
                id: filters

                Layout.fillWidth: true
                panel: project.panel
                onLeft: tree.forceActiveFocus()
            }
            ProjectTree {
                id: tree

                Layout.fillWidth: true
                Layout.fillHeight: true
                focus: true
                panel: project.panel
            }
        }
        DetailsPane {
            T.SplitView.preferredWidth: 330
            T.SplitView.minimumWidth: 200
            details: project.panel.details
        }
    }
}
