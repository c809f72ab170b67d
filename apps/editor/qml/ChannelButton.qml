import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The switch of a colour channel, in its colour. A click with Shift wants the channel alone.
T.AbstractButton {
    id: button

    property string name
    property bool isOn: true
    signal alone

    readonly property var inks: ({ "red": "#e0605a", "green": "#6bbf6b", "blue": "#5c9fe0", "alpha": "#d6dae0" })
    readonly property color ink: inks[name] || Theme.text

    objectName: "channel-" + name
    implicitWidth: 26
    implicitHeight: Theme.controlHeight
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.radius
        color: button.isOn ? Qt.darker(button.ink, 2.6) : button.hovered ? Theme.raised : Theme.field
        border.color: button.visualFocus ? Theme.accentText : button.isOn ? button.ink : Theme.raised
    }
    contentItem: Label {
        text: button.name.charAt(0).toUpperCase()
        horizontalAlignment: Text.AlignHCenter
        font: Theme.strongFont
        color: button.isOn ? button.ink : button.enabled ? Theme.secondary : Theme.outline
    }
    MouseArea {
        anchors.fill: parent
        onPressed: mouse.accepted = mouse.modifiers & Qt.ShiftModifier
        onClicked: button.alone()
    }
    Tip {
        visible: button.hovered && button.enabled
        text: qsTr("Shows or hides %1; with Shift shows it alone").arg(button.name)
    }
}
