import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A text of several lines; it is handed over when the field is left, or by Control and Enter. Escape takes the typing back.
T.TextArea {
    id: field

    property var line
    property var rows
    property var pane
    readonly property string value: line.isMixed ? "\u2014" : line.value || ""

    function restore() { text = value }
    function hand() {
        if (text !== value)
            rows.write(line.index, text)
        restore()
    }

    objectName: "entry-" + line.path
    implicitHeight: Math.max(line.lines * 16, contentHeight) + 8
    padding: 4
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    readOnly: line.isReadOnly
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    font: Theme.font
    color: readOnly ? Theme.faint : line.isMixed && !activeFocus ? Theme.secondary : Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    selectByMouse: true
    hoverEnabled: true

    onValueChanged: restore()
    Component.onCompleted: restore()
    onActiveFocusChanged: activeFocus ? pane.reveal(field) : hand()
    Keys.onEscapePressed: restore()
    Keys.onPressed: {
        event.accepted = event.modifiers & Qt.ControlModifier && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
        if (event.accepted)
            hand()
    }
    // As in fields of one line: the keys for undo are those of the typing while there is any.
    Keys.onShortcutOverride: {
        if (event.modifiers & Qt.ControlModifier && event.key === Qt.Key_S)
            hand()
        event.accepted = text !== value && event.key === Qt.Key_Z && event.modifiers & Qt.ControlModifier
    }

    background: Rectangle {
        color: field.readOnly ? "transparent" : Theme.field
        radius: Theme.radius
        border.color: field.activeFocus ? Theme.accent : field.hovered ? Theme.outline : Theme.raised
    }
}
