import QtQuick 2.15
import Editor 1.0

// A colour as a swatch and as text, with a few to choose from.
Row {
    id: row

    property var line
    property var rows
    property var pane
    readonly property string colour: line.isMixed ? "" : line.value || "#000000"

    spacing: Theme.spacing

    Rectangle {
        width: 30
        height: Theme.controlHeight
        radius: Theme.radius
        color: row.line.isMixed ? "transparent" : row.colour
        opacity: row.line.isReadOnly ? 0.5 : 1
        border.color: Theme.outline
        Label {
            anchors.fill: parent
            horizontalAlignment: Text.AlignHCenter
            visible: row.line.isMixed
            text: "\u2014"
            color: Theme.secondary
        }
    }
    EntryField {
        id: field

        objectName: "entry-" + row.line.path
        width: 76
        document: row.pane.document
        readOnly: row.line.isReadOnly
        isMixed: row.line.isMixed
        font: Theme.monoFont
        value: row.line.isMixed ? "\u2014" : row.colour
        onActiveFocusChanged: if (activeFocus) row.pane.reveal(field)
        onEntered: row.rows.write(row.line.index, text)
    }
    Repeater {
        model: ["#ffd166", "#e08a5b", "#d0706b", "#a6aee8", "#5fa8c9", "#7fc8a9", "#e5e9f0"]
        Rectangle {
            readonly property bool fits: x + width <= row.width

            objectName: "colour-" + modelData
            enabled: fits && !row.line.isReadOnly
            opacity: !fits ? 0 : enabled ? 1 : 0.3
            y: (Theme.controlHeight - height) / 2
            width: 14
            height: 14
            radius: Theme.radius
            color: modelData
            border.width: area.containsMouse || row.colour === modelData ? 2 : 0
            border.color: Theme.text
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: row.rows.write(row.line.index, modelData)
            }
        }
    }
}
