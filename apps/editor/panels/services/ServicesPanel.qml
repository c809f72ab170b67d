import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0
import "../history"

FocusScope {
    id: services

    property var panel

    focus: true

    HistoryShortcuts {
        document: panel.document
    }
    Panes {
        anchors.fill: parent

        ScenePane {
            T.SplitView.preferredWidth: Math.min(300, services.width * 0.24)
            T.SplitView.minimumWidth: 160
            focus: true
            document: panel.document
        }
        ObjectForm {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 300
            document: panel.document
        }
        HistoryPane {
            T.SplitView.preferredWidth: Math.min(340, services.width * 0.28)
            T.SplitView.minimumWidth: 200
            document: panel.document
        }
    }
}
