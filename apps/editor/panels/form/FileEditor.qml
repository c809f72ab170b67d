import QtQuick 2.15
import Editor 1.0

// A file of the project, typed or chosen from those that fit.
Row {
    id: row

    property var line
    property var rows
    property var pane

    spacing: 2

    EntryField {
        id: field

        objectName: "entry-" + row.line.path
        width: parent.width - button.width - parent.spacing
        document: row.pane.document
        readOnly: row.line.isReadOnly
        showsEnd: true
        isMixed: row.line.isMixed
        value: row.line.isMixed ? "\u2014" : row.line.value || ""
        onActiveFocusChanged: if (activeFocus) row.pane.reveal(field)
        onEntered: row.rows.write(row.line.index, text)

        Label {
            x: Theme.margin
            height: parent.height
            visible: !field.text && !field.activeFocus
            text: qsTr("None")
            color: Theme.faint
        }
    }
    IconButton {
        id: button

        objectName: "browse-" + row.line.path
        enabled: !row.line.isReadOnly
        icon.name: "browse"
        tip: qsTr("Choose from the project's files (%1)").arg(row.line.pattern)
        onClicked: {
            list.choices = row.pane.source.files(row.line.folder, row.line.pattern)
            list.open()
        }

        DropList {
            id: list

            x: parent.width - width
            width: row.width
            current: row.line.value || ""
            onChosen: row.rows.write(row.line.index, choice)
        }
    }
}
