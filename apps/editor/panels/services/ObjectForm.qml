import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The current object: a line for each of its values, bound by name, and a button for each of its methods.
FocusScope {
    id: form

    property var document
    readonly property var subject: document.subject
    property var values: []
    property var methods: []

    // Not a binding, which would make the editors anew whenever one of the values read here changes.
    onSubjectChanged: describe()
    Component.onCompleted: describe()

    function describe() {
        const lines = [], buttons = []
        for (const name of subject.reflectedNames()) {
            const notes = subject.reflectedAnnotations(name)
            const line = { name: name, label: notes["Meta::Label::Text"] || name, tip: notes["Meta::ToolTip"] || "",
                           editor: editorFor(subject[name], notes) }
            if (notes["Meta::Visible"] === false)
                continue
            if (line.editor)
                lines.push(line)
            else
                buttons.push(line)
        }
        values = lines
        methods = buttons
    }
    function editorFor(value, notes) {
        switch (typeof value) {
        case "function": return ""
        case "boolean": return "CheckEntry.qml"
        case "number": return "NumberEntry.qml"
        case "object": return "GroupEntry.qml"
        default: return notes["editor::Colour"] ? "ColourEntry.qml" : "TextEntry.qml"
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.pane
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        PaneTitle {
            Layout.fillWidth: true
            text: subject.name
        }
        Flickable {
            Layout.fillWidth: true
            Layout.fillHeight: true
            contentHeight: lines.height + 2 * Theme.margin
            boundsBehavior: Flickable.StopAtBounds
            clip: true
            T.ScrollBar.vertical: ScrollHandle { }

            Column {
                id: lines

                objectName: "form"
                x: Theme.margin + 2
                y: Theme.margin
                width: Math.min(parent.width - 2 * x, 560)
                spacing: Theme.spacing

                Repeater {
                    model: form.values
                    FormLine {
                        width: lines.width
                        document: form.document
                        subject: form.subject
                        line: modelData
                    }
                }
                Rectangle {
                    width: lines.width
                    height: 1
                    color: Theme.guide
                }
                Row {
                    x: 110
                    spacing: Theme.spacing
                    Repeater {
                        model: form.methods
                        PushButton {
                            objectName: "call-" + modelData.name
                            text: modelData.label
                            onClicked: form.document.call(modelData.name)
                        }
                    }
                }
            }
        }
    }
}
