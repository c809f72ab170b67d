import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

FocusScope {
    id: image

    property var panel

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: list.focusWords() }

    Panes {
        anchors.fill: parent

        ImageList {
            id: list

            T.SplitView.preferredWidth: Math.min(280, image.width * 0.24)
            T.SplitView.minimumWidth: 140
            focus: true
            panel: image.panel
        }
        ColumnLayout {
            T.SplitView.fillWidth: true
            T.SplitView.minimumWidth: 360
            spacing: 0

            ImageBar {
                Layout.fillWidth: true
                panel: image.panel
                canvas: canvas
            }
            ImageCanvas {
                id: canvas

                objectName: "canvas"
                Layout.fillWidth: true
                Layout.fillHeight: true
                panel: image.panel
            }
        }
        FactsPane {
            T.SplitView.preferredWidth: Math.min(280, image.width * 0.24)
            T.SplitView.minimumWidth: 170
            panel: image.panel
        }
    }
}
