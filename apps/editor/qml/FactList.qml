import QtQuick 2.15
import Editor 1.0

// Labels and values, one a line; a value can be selected and takes as many lines as it needs.
Column {
    property alias facts: repeater.model
    property int labelWidth: 72

    spacing: 3
    Repeater {
        id: repeater

        Row {
            width: parent.width
            Label {
                width: labelWidth
                text: modelData.label
                color: Theme.faint
            }
            TextEdit {
                width: parent.width - labelWidth
                text: modelData.value
                textFormat: TextEdit.PlainText
                wrapMode: TextEdit.WrapAnywhere
                readOnly: true
                selectByMouse: true
                color: Theme.text
                selectionColor: Theme.accent
                font: Theme.font
            }
        }
    }
}
