import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0
import "../form"

// What is selected, all of it at once.
FocusScope {
    id: pane

    property var panel
    readonly property var form: panel.form

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
                name: form.icon
                color: Theme.sceneColors[form.icon] || Theme.secondary
            }
            Label {
                id: title

                objectName: "title"
                anchors.left: icon.right
                anchors.leftMargin: Theme.margin
                width: Math.min(implicitWidth, parent.width - x - type.width - 2 * Theme.margin)
                height: parent.height
                font: Theme.strongFont
                text: form.title
            }
            Label {
                id: type

                objectName: "subjectType"
                anchors.right: parent.right
                anchors.rightMargin: Theme.margin + Theme.scrollWidth
                height: parent.height
                font: Theme.smallFont
                text: form.type
                color: Theme.faint
            }
        }
        Note {
            Layout.fillWidth: true
            objectName: "locked"
            visible: form.rows.isReadOnly
            iconName: "lock"
            text: qsTr("Locked, or in a locked group")
        }
        Note {
            Layout.fillWidth: true
            objectName: "problemNote"
            visible: form.problem
            iconName: "warning"
            text: form.problem
        }
        Note {
            Layout.fillWidth: true
            objectName: "others"
            visible: form.others > 0
            iconName: "nothing"
            text: form.others === 1 ? qsTr("One selected object is of another type") : qsTr("%1 selected objects are of other types").arg(form.others)
        }
        FormPane {
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            rows: form.rows
            document: panel.document
            source: form
        }
    }
}
