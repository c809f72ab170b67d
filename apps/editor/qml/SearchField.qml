import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A line to type into that tells what it is for while it is empty, and can be emptied by a click or Escape.
T.TextField {
    id: field

    property string iconName: "search"
    property string tip

    implicitWidth: 220
    implicitHeight: Theme.controlHeight
    leftPadding: 26
    rightPadding: clearButton.visible ? 24 : Theme.margin
    verticalAlignment: TextInput.AlignVCenter
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font: Theme.font
    hoverEnabled: true
    selectByMouse: true

    background: Rectangle {
        color: Theme.field
        radius: Theme.radius
        border.color: field.activeFocus ? Theme.accent : field.hovered || field.text ? Theme.outline : Theme.raised
    }
    Icon {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        name: field.iconName
        size: 14
        color: field.text ? Theme.accent : Theme.faint
    }
    Label {
        x: field.leftPadding
        width: field.width - x - Theme.margin
        height: field.height
        visible: !field.text
        text: field.placeholderText
        color: Theme.faint
    }
    IconButton {
        id: clearButton

        anchors.right: parent.right
        anchors.rightMargin: 2
        anchors.verticalCenter: parent.verticalCenter
        visible: field.text
        implicitHeight: 18
        implicitWidth: 18
        focusPolicy: Qt.NoFocus
        iconSize: 14
        icon.name: "clear"
        tip: qsTr("Clear")
        onClicked: field.clearText()
    }
    Tip {
        visible: field.hovered && !field.activeFocus && field.tip
        text: field.tip
    }

    Keys.onEscapePressed: event.accepted = clearText()

    // As if it had been typed, so that whoever follows the typing hears of it. False when there was nothing to clear.
    function clearText() {
        const had = length > 0
        clear()
        textEdited()
        return had
    }
}
