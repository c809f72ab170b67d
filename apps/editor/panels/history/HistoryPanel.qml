import QtQuick 2.15
import Editor 1.0

FocusScope {
    property var panel

    focus: true

    HistoryShortcuts {
        document: panel.document
    }
    HistoryPane {
        anchors.fill: parent
        focus: true
        document: panel.document
    }
}
