import QtQuick 2.15
import Editor 1.0

// A button for each method.
Flow {
    id: flow

    property var line
    property var rows
    property var pane

    topPadding: 3
    spacing: Theme.spacing

    Repeater {
        model: flow.line.fields.length
        PushButton {
            id: button

            readonly property var method: flow.line.fields[index] || ({})

            objectName: "call-" + method.name
            enabled: !flow.line.isReadOnly
            opacity: enabled ? 1 : 0.5
            text: method.label || ""
            onClicked: flow.rows.call(flow.line.index, index)

            Tip {
                visible: button.hovered && text
                text: button.method.tip || ""
            }
        }
    }
}
