import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A box to be ticked; it has a dash where objects differ, and is ticked for all of them then.
T.AbstractButton {
    id: box

    property var line
    property var rows
    property var pane
    readonly property bool isTicked: line.value === true
    readonly property bool isFilled: isTicked || line.isMixed

    objectName: "entry-" + line.path
    implicitHeight: Theme.controlHeight
    enabled: !line.isReadOnly
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    onActiveFocusChanged: if (activeFocus) pane.reveal(box)
    onClicked: rows.write(line.index, line.isMixed || !isTicked)

    contentItem: Item {
        Rectangle {
            y: (parent.height - height) / 2
            width: 16
            height: 16
            radius: Theme.radius
            opacity: box.enabled ? 1 : 0.5
            color: box.isFilled ? Qt.darker(Theme.accent, 1.5) : Theme.field
            border.color: box.visualFocus || box.isFilled ? Theme.accent : box.hovered ? Theme.faint : Theme.outline
            Icon {
                anchors.centerIn: parent
                size: 14
                visible: box.isTicked
                name: "tick"
                color: Theme.accentText
            }
            Rectangle {
                objectName: "dash"
                anchors.centerIn: parent
                visible: box.line.isMixed
                width: 8
                height: 2
                color: Theme.accentText
            }
        }
    }
}
