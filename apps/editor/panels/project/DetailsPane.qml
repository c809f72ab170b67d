import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// What is known of the current row, and what it looks like.
Rectangle {
    property var details

    color: Theme.pane

    PaneTitle {
        id: title

        width: parent.width
        text: qsTr("Details")
    }
    Label {
        anchors.centerIn: parent
        visible: details.isEmpty
        text: qsTr("Nothing is selected")
        color: Theme.faint
    }
    Item {
        anchors.top: title.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.margin + 2
        visible: !details.isEmpty

        Row {
            id: heading

            width: parent.width
            spacing: 8
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                size: 28
                name: details.icon
                color: Theme.kindColors[details.icon] || Theme.secondary
            }
            Column {
                width: parent.width - 36
                Label {
                    width: parent.width
                    elide: Text.ElideMiddle
                    text: details.name
                    font: Theme.strongFont
                }
                Label {
                    text: details.kind
                    font: Theme.smallFont
                    color: Theme.secondary
                }
            }
        }
        Rectangle {
            id: rule

            anchors.top: heading.bottom
            anchors.topMargin: Theme.margin
            width: parent.width
            height: 1
            color: Theme.guide
        }
        FactList {
            id: facts

            anchors.top: rule.bottom
            anchors.topMargin: Theme.margin
            width: parent.width
            facts: details.facts
        }
        Rectangle {
            anchors.top: facts.bottom
            anchors.topMargin: Theme.margin + 4
            width: parent.width
            height: Math.min(parent.height - y, details.excerpt ? parent.height : width)
            visible: details.excerpt || details.image != ""
            color: Theme.field
            border.color: Theme.line
            radius: Theme.radius
            clip: true

            ImagePreview {
                anchors.fill: parent
                anchors.margins: 1
                visible: details.image != ""
                source: details.image
            }
            Flickable {
                anchors.fill: parent
                anchors.margins: Theme.margin
                visible: details.excerpt
                contentWidth: excerpt.implicitWidth
                contentHeight: excerpt.implicitHeight
                boundsBehavior: Flickable.StopAtBounds
                clip: true
                T.ScrollBar.vertical: ScrollHandle { }
                T.ScrollBar.horizontal: ScrollHandle { }
                TextEdit {
                    id: excerpt

                    text: details.excerpt
                    textFormat: TextEdit.PlainText
                    readOnly: true
                    selectByMouse: true
                    font: Theme.monoFont
                    color: Theme.secondary
                    selectionColor: Theme.accent
                }
            }
        }
    }
}
