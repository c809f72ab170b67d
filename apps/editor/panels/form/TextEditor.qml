import QtQuick 2.15
import Editor 1.0

EntryField {
    property var line
    property var rows
    property var pane

    objectName: "entry-" + line.path
    document: pane.document
    readOnly: line.isReadOnly
    isMixed: line.isMixed
    value: line.isMixed ? "\u2014" : line.value || ""
    onActiveFocusChanged: if (activeFocus) pane.reveal(this)
    onEntered: rows.write(line.index, text)
}
