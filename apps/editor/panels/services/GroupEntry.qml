import QtQuick 2.15
import Editor 1.0

// The numbers of a value that is an object itself, side by side.
Row {
    id: group

    property var document
    property var subject
    property string name
    readonly property var inner: subject[name]
    property var names: []

    Component.onCompleted: names = inner.reflectedNames()

    spacing: Theme.spacing
    Repeater {
        model: group.names
        NumberEntry {
            width: (group.width - (group.names.length - 1) * group.spacing) / group.names.length
            leftPadding: 22
            document: group.document
            subject: group.inner
            name: modelData

            Label {
                x: Theme.margin
                height: parent.height
                text: modelData
                color: ["#d0706b", "#7fb069", "#6a9fd8"][index] || Theme.faint
            }
        }
    }
}
