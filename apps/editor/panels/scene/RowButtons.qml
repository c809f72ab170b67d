import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The buttons of a row, each in the column of its place: quiet until the row is under the pointer, but for switches that
// are off their usual side. With Alt a switch is to exchange the selected objects with their siblings.
Item {
    id: strip

    property var buttons
    property bool isActive: false
    readonly property int columns: 5
    readonly property int step: 19
    signal pressed(var button, bool alt)
    readonly property var icons: ({ "model_asset/add": "add", "model_asset/delete": "trash" })

    width: columns * step

    Repeater {
        model: strip.buttons
        T.AbstractButton {
            id: button

            readonly property string iconName: strip.icons[model.decoration] || model.decoration
            readonly property bool isUnusual: iconName === "lock" || iconName === "eye-off"

            objectName: "button-" + iconName
            x: model.posIndex * strip.step
            width: strip.step
            height: strip.height
            focusPolicy: Qt.NoFocus
            hoverEnabled: true
            opacity: hovered || isUnusual ? 1 : strip.isActive ? 0.7 : model.showOnlyOnHover ? 0 : 0.22
            onClicked: strip.pressed(model.action, alt)

            property bool alt: false
            MouseArea {
                anchors.fill: parent
                onPressed: { button.alt = mouse.modifiers & Qt.AltModifier; mouse.accepted = false }
            }

            contentItem: Item {
                Icon {
                    anchors.centerIn: parent
                    size: 14
                    name: button.iconName
                    color: button.down ? Theme.accent : button.isUnusual && !button.hovered ? Theme.pending : model.iconColour
                }
            }
            Tip {
                visible: button.hovered && text
                text: model.toolTip
            }
        }
    }
}
