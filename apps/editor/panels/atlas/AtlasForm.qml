import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0
import "../form"

// The selected slots, or the atlas itself: columns, rows and textures.
FocusScope {
    property var panel

    Rectangle {
        anchors.fill: parent
        color: Theme.pane
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: Theme.barHeight + 4
            color: Theme.pane

            Icon {
                id: icon

                x: Theme.margin
                anchors.verticalCenter: parent.verticalCenter
                name: panel.selectedCount > 0 ? "texture" : "atlas"
                color: Theme.kindColors["texture"]
            }
            Label {
                objectName: "title"
                anchors.left: icon.right
                anchors.leftMargin: Theme.margin
                anchors.right: other.left
                height: parent.height
                elide: Text.ElideMiddle
                font: Theme.strongFont
                text: panel.title
            }
            IconButton {
                id: other

                objectName: "otherAtlas"
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin
                anchors.verticalCenter: parent.verticalCenter
                visible: panel.document.atlases.length > 1
                icon.name: "browse"
                tip: qsTr("Opens another atlas of the project")
                onClicked: list.open()

                DropList {
                    id: list

                    x: parent.width - width
                    width: 260
                    choices: panel.document.atlases
                    current: panel.document.path
                    onChosen: panel.document.open(choice)
                }
            }
        }
        FormPane {
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            rows: panel.rows
            document: panel.document
            source: panel
        }
    }
}
