import QtQuick 2.15
import Editor 1.0

// One row of a form: the label and the editor of a value, a heading, or buttons.
Item {
    id: row

    property var pane
    readonly property var line: model
    readonly property bool isWide: model.editor === "heading" || model.editor === "methods"
    readonly property int inset: Theme.margin + model.level * 12

    objectName: "line-" + model.path
    height: loader.height

    Rectangle {
        visible: model.level > 0
        x: Theme.margin + 5
        y: -3
        width: 1
        height: parent.height + 3
        color: Theme.guide
    }
    Label {
        id: caption

        visible: !isWide
        x: row.inset
        width: pane.labelWidth + Theme.margin - row.inset
        height: Theme.controlHeight
        text: model.label
        color: model.isReadOnly ? Theme.faint : Theme.secondary

        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
            acceptedButtons: Qt.NoButton
        }
        Tip {
            visible: area.containsMouse && text
            text: model.tip || (caption.truncated ? model.label : "")
        }
    }
    Loader {
        id: loader

        x: row.isWide ? row.inset : pane.labelWidth + 2 * Theme.margin
        width: parent.width - x - (model.canRemove && !row.isWide ? 26 : 0)
        Component.onCompleted: setSource(model.editor[0].toUpperCase() + model.editor.slice(1) + "Editor.qml",
                                         { line: row.line, rows: pane.rows, pane: pane })
    }
    IconButton {
        objectName: "remove-" + model.path
        anchors.right: parent.right
        visible: model.canRemove
        icon.name: "trash"
        iconSize: 14
        tip: qsTr("Remove this element")
        onClicked: pane.rows.remove(index)
    }
}
