import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// Rows of properties, each with the editor that its type and annotations ask for.
Flickable {
    id: form

    property var rows
    property var document
    property var source // of files
    readonly property int labelWidth: width < 340 ? 78 : 112

    contentHeight: column.height + 2 * Theme.margin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    T.ScrollBar.vertical: ScrollHandle { }

    // A field that the focus comes to is brought into sight.
    function reveal(item) {
        const top = item.mapToItem(column, 0, 0).y
        if (top < contentY)
            contentY = Math.max(0, top - Theme.margin)
        else if (top + item.height + 2 * Theme.margin > contentY + height)
            contentY = top + item.height + 2 * Theme.margin - height
    }

    // A press beside the fields ends typing.
    MouseArea {
        width: form.width
        height: Math.max(form.height, form.contentHeight)
        onPressed: form.forceActiveFocus()
    }
    Column {
        id: column

        objectName: "form"
        y: Theme.margin
        width: form.width - Theme.scrollWidth
        spacing: 3

        Repeater {
            model: form.rows
            FormRow {
                width: column.width
                pane: form
            }
        }
    }
}
