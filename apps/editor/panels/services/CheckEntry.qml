import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A box to be ticked. It tells a click, and follows the value.
T.AbstractButton {
    id: box

    property var document
    property var subject
    property string name
    readonly property bool isTicked: subject[name] === true

    objectName: "entry-" + name
    hoverEnabled: true
    onClicked: document.write(subject, name, !isTicked)

    contentItem: Item {
        Rectangle {
            y: (parent.height - height) / 2
            width: 16
            height: 16
            radius: Theme.radius
            color: box.isTicked ? Qt.darker(Theme.accent, 1.5) : Theme.field
            border.color: box.visualFocus || box.isTicked ? Theme.accent : box.hovered ? Theme.faint : Theme.outline
            Icon {
                anchors.centerIn: parent
                size: 14
                visible: box.isTicked
                name: "tick"
                color: Theme.accentText
            }
        }
    }
}
