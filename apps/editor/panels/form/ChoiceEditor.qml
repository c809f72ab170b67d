import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// One of an enumeration's values, from a list that drops down. Up and Down walk through them.
T.AbstractButton {
    id: choice

    property var line
    property var rows
    property var pane

    function step(by) {
        const next = line.choices.indexOf(line.value) + by
        if (next >= 0 && next < line.choices.length)
            rows.write(line.index, line.choices[next])
    }

    objectName: "entry-" + line.path
    implicitHeight: Theme.controlHeight
    enabled: !line.isReadOnly
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    onActiveFocusChanged: if (activeFocus) pane.reveal(choice)
    onClicked: list.open()
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)

    background: Rectangle {
        color: choice.enabled ? Theme.field : "transparent"
        radius: Theme.radius
        border.color: choice.visualFocus || list.visible ? Theme.accent : choice.hovered ? Theme.outline : Theme.raised
    }
    contentItem: Item {
        Label {
            anchors.fill: parent
            leftPadding: Theme.margin
            rightPadding: 24
            text: choice.line.isMixed ? "\u2014" : choice.line.value || ""
            color: !choice.enabled ? Theme.faint : choice.line.isMixed ? Theme.secondary : Theme.text
        }
        Icon {
            anchors.right: parent.right
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            size: 12
            name: "arrow-down"
            color: choice.hovered ? Theme.text : Theme.faint
        }
    }
    DropList {
        id: list

        choices: choice.line.choices
        current: choice.line.isMixed ? "" : choice.line.value || ""
        onChosen: rows.write(line.index, choice)
    }
}
