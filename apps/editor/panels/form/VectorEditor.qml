import QtQuick 2.15
import Editor 1.0

// The numbers of a vector, side by side.
Row {
    id: vector

    property var line
    property var rows
    property var pane
    readonly property int count: line.fields.length

    spacing: 3

    Repeater {
        model: vector.count
        NumberBox {
            id: box

            readonly property var field: vector.line.fields[index] || ({})

            objectName: "entry-" + vector.line.path + "." + field.name
            width: (vector.width - (vector.count - 1) * vector.spacing) / vector.count
            labelInset: 12
            document: vector.pane.document
            readOnly: vector.line.isReadOnly
            isMixed: field.isMixed === true
            number: isMixed ? undefined : field.value
            digits: field.digits || 0
            least: field.least
            most: field.most
            onActiveFocusChanged: if (activeFocus) vector.pane.reveal(box)
            onChanged: vector.rows.write(vector.line.index, number, index)
            onScrubbed: isRunning ? vector.rows.begin(vector.line.index) : vector.rows.end()

            Label {
                x: 6
                height: box.height
                text: box.field.label || ""
                font: Theme.smallFont
                color: box.readOnly ? Theme.faint : ["#d0706b", "#7fb069", "#6a9fd8"][index] || Theme.faint
            }
        }
    }
}
