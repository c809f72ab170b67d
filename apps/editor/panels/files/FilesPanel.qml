import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

FocusScope {
    id: files

    property var panel

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: search.focusField() }
    Shortcut { sequence: StandardKey.Refresh; enabled: visible; onActivated: panel.reload() }
    Shortcut { sequence: StandardKey.FindNext; enabled: visible; onActivated: search.step(1) }
    Shortcut { sequence: StandardKey.FindPrevious; enabled: visible; onActivated: search.step(-1) }

    Panes {
        anchors.fill: parent

        RootsPane {
            T.SplitView.preferredWidth: files.width * 0.3
            T.SplitView.minimumWidth: 220
            panel: files.panel
        }
        SearchPane {
            id: search

            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 320
            focus: true
            panel: files.panel
        }
        MapsPane {
            T.SplitView.preferredWidth: 190
            T.SplitView.minimumWidth: 150
            panel: files.panel
        }
    }
}
