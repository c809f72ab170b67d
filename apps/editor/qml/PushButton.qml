import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

T.Button {
    id: button

    implicitWidth: contentItem.implicitWidth + 28
    implicitHeight: Theme.controlHeight + 2
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.radius
        color: button.down ? Theme.field : button.hovered ? Theme.outline : Theme.raised
        border.color: button.visualFocus ? Theme.accent : Theme.outline
    }
    contentItem: Label {
        text: button.text
        horizontalAlignment: Text.AlignHCenter
    }
}
