import QtQuick 2.15
import Editor 1.0

// One value of an object: its label and the editor for its type.
Item {
    id: formLine

    property var document
    property var subject
    property var line

    height: Theme.controlHeight

    Label {
        id: label

        width: 104
        height: parent.height
        horizontalAlignment: Text.AlignRight
        text: line.label
        color: Theme.secondary

        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
        }
        Tip {
            visible: area.containsMouse && line.tip
            text: line.tip
        }
    }
    Loader {
        x: 110
        width: parent.width - x
        height: parent.height
        Component.onCompleted: setSource(line.editor, { document: document, subject: subject, name: line.name })
    }
}
