import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A button of an icon, with a text beside it if it has one; a switch if it is checkable.
T.AbstractButton {
    id: button

    property string tip
    property int iconSize: Theme.iconSize
    readonly property color ink: checked ? Theme.accentText : !enabled ? Theme.outline
                                 : hovered || activeFocus ? Theme.text : Theme.secondary

    implicitWidth: content.implicitWidth + (text ? 2 * Theme.margin : 8)
    implicitHeight: Theme.controlHeight
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.radius
        color: button.checked ? Qt.darker(Theme.accent, 1.5) : button.down ? Theme.field
               : button.hovered ? Theme.raised : "transparent"
        border.width: button.visualFocus || button.checked ? 1 : 0
        border.color: Theme.accent
    }
    contentItem: Item {
        implicitWidth: content.implicitWidth
        Row {
            id: content

            anchors.centerIn: parent
            spacing: 5
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                visible: name
                name: button.icon.name
                size: button.iconSize
                color: button.ink
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                visible: text
                text: button.text
                color: button.ink
            }
        }
    }
    Tip {
        visible: button.hovered && button.tip
        text: button.tip
    }
}
