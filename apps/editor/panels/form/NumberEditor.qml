import QtQuick 2.15

NumberBox {
    property var line
    property var rows
    property var pane

    objectName: "entry-" + line.path
    document: pane.document
    readOnly: line.isReadOnly
    isMixed: line.isMixed
    number: line.isMixed ? undefined : line.value
    digits: line.digits
    least: line.least
    most: line.most
    unit: line.unit
    onActiveFocusChanged: if (activeFocus) pane.reveal(this)
    onChanged: rows.write(line.index, number)
    onScrubbed: isRunning ? rows.begin(line.index) : rows.end()
}
