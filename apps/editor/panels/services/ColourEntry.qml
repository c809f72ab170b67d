import QtQuick 2.15
import Editor 1.0

// A colour as a swatch and as text, with a few to choose from.
Row {
    id: row

    property var document
    property var subject
    property string name
    readonly property string colour: subject[name] || "#000000"

    spacing: Theme.spacing

    Rectangle {
        width: 36
        height: parent.height
        radius: Theme.radius
        color: row.colour
        border.color: Theme.outline
    }
    EntryField {
        objectName: "entry-" + row.name
        width: 84
        document: row.document
        font: Theme.monoFont
        value: row.colour
        onEntered: row.document.write(row.subject, row.name, text)
    }
    Repeater {
        model: ["#c9a86a", "#ffd166", "#e08a5b", "#d0706b", "#a6aee8", "#5fa8c9", "#7fc8a9", "#e5e9f0"]
        Rectangle {
            objectName: "colour-" + modelData
            enabled: x + width <= row.width // those that there is no room for
            opacity: enabled ? 1 : 0
            anchors.verticalCenter: parent.verticalCenter
            width: 16
            height: 16
            radius: Theme.radius
            color: modelData
            border.width: area.containsMouse || row.colour === modelData ? 2 : 0
            border.color: Theme.text
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: row.document.write(row.subject, row.name, modelData)
            }
        }
    }
}
