import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A field that shows a value, and hands over what was typed on Enter or when it is left. Escape takes the typing back.
T.TextField {
    id: field

    property string value
    property bool isMixed: false // the value stands for several that differ
    property var document
    readonly property bool isTouched: text !== value
    signal entered(string text)

    // Of a value that is too long its beginning shows, unless the end says more.
    property bool showsEnd: false

    function restore() {
        text = value
        if (!activeFocus && !showsEnd)
            cursorPosition = 0
    }

    implicitHeight: Theme.controlHeight
    leftPadding: Theme.margin
    rightPadding: Theme.margin
    verticalAlignment: TextInput.AlignVCenter
    color: readOnly ? Theme.faint : isMixed && !activeFocus ? Theme.secondary : Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font: Theme.font
    hoverEnabled: true
    selectByMouse: true

    onValueChanged: restore()
    Component.onCompleted: restore()
    onActiveFocusChanged: if (activeFocus) selectAll()
    onEditingFinished: {
        if (isTouched)
            entered(text)
        restore()
    }

    Keys.priority: Keys.BeforeItem
    Keys.onEscapePressed: restore()
    // The keys for undo are those of the typing while there is any, else those of the document. What is typed is saved.
    Keys.onShortcutOverride: {
        if (event.modifiers & Qt.ControlModifier && event.key === Qt.Key_S)
            editingFinished()
        event.accepted = isTouched && event.key === Qt.Key_Z && event.modifiers & Qt.ControlModifier
    }
    Keys.onPressed: {
        if (isTouched || event.key !== Qt.Key_Z || !(event.modifiers & Qt.ControlModifier))
            return
        event.accepted = true
        if (event.modifiers & Qt.ShiftModifier)
            document.history.redo()
        else
            document.history.undo()
    }

    background: Rectangle {
        color: field.readOnly ? "transparent" : Theme.field
        radius: Theme.radius
        border.color: field.activeFocus && !field.readOnly ? Theme.accent : field.hovered ? Theme.outline : Theme.raised
    }
}
