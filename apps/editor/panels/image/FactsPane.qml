import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// What is known of the file: what one looks for first, and below it the whole table.
Rectangle {
    property var panel

    color: Theme.pane

    PaneTitle {
        id: title

        width: parent.width
        text: qsTr("Image")
    }
    Column {
        id: head

        objectName: "form"
        anchors.top: title.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.margin + 2
        spacing: Theme.spacing

        Label {
            width: parent.width
            elide: Text.ElideMiddle
            font: Theme.strongFont
            text: panel.path.split("/").pop()
        }
        FactList {
            width: parent.width
            opacity: panel.form.valid ? 1 : 0.4
            facts: [
                { label: qsTr("Size"), value: qsTr("%1 \u00d7 %2 px").arg(panel.form.width).arg(panel.form.height)
                                              + (panel.form.depth > 1 ? qsTr(" \u00d7 %1").arg(panel.form.depth) : "") },
                { label: qsTr("Mips"), value: panel.form.mipCount },
                { label: qsTr("Pixel"), value: qsTr("%1 bytes, %2 a channel").arg(panel.form.bytesPerPixel)
                                               .arg(panel.form.bytesPerChannel) },
                { label: qsTr("Packing"), value: panel.form.compression },
                { label: qsTr("Format"), value: panel.form.format }
            ]
        }
    }
    PaneTitle {
        id: tableTitle

        anchors.top: head.bottom
        anchors.topMargin: Theme.margin
        width: parent.width
        text: qsTr("Facts")
    }
    ListView {
        id: table

        objectName: "facts"
        anchors.top: tableTitle.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: panel.facts
        T.ScrollBar.vertical: ScrollHandle { }

        delegate: Rectangle {
            width: table.width
            height: Theme.rowHeight
            color: index % 2 ? Theme.pane : Theme.hover

            Label {
                width: Math.max(parent.width / 2, 120)
                height: parent.height
                leftPadding: Theme.margin
                color: Theme.secondary
                text: model.display
            }
            Label {
                x: Math.max(parent.width / 2, 120)
                width: parent.width - x - Theme.margin
                height: parent.height
                text: model.value
            }
        }
    }
}
