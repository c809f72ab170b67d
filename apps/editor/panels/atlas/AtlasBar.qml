import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// How the atlas is shown, and what can be done to its slots.
Rectangle {
    id: bar

    property var panel
    readonly property var view: panel.document.view
    readonly property var context: panel.document.context
    readonly property bool isNarrow: width < 720

    implicitHeight: Theme.barHeight + 4
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        spacing: Theme.spacing

        SegmentedSwitch {
            objectName: "types"
            labels: ["AM", "GBMT", "MAO"]
            tips: [qsTr("Colour and alpha"), qsTr("Gloss, bump, metal, translucency"), qsTr("Metal and ambient occlusion")]
            currentIndex: context.settings.tileType
            onChosen: view.setType(index)
        }
        Row {
            spacing: 2
            ChannelButton {
                name: "red"
                isOn: context.settings.red
                onClicked: view.turnChannel(1)
                onAlone: view.showAlone(1)
            }
            ChannelButton {
                name: "green"
                isOn: context.settings.green
                onClicked: view.turnChannel(2)
                onAlone: view.showAlone(2)
            }
            ChannelButton {
                name: "blue"
                isOn: context.settings.blue
                onClicked: view.turnChannel(4)
                onAlone: view.showAlone(4)
            }
            ChannelButton {
                name: "alpha"
                isOn: context.settings.alpha
                onClicked: view.turnChannel(8)
                onAlone: view.showAlone(8)
            }
        }
        IconButton {
            objectName: "numbers"
            text: "#"
            checked: context.settings.showNumbers
            tip: qsTr("Shows the numbers of the slots")
            onClicked: view.turnNumbers()
        }
        Item { Layout.fillWidth: true }
        IconButton {
            objectName: "add"
            icon.name: "add"
            text: bar.isNarrow ? "" : qsTr("Add")
            tip: qsTr("Fills free slots with AM textures; they can be dropped onto the slots as well")
            onClicked: panel.document.addTextures()
        }
        IconButton {
            objectName: "clear"
            enabled: panel.selectedCount > 0
            icon.name: "trash"
            text: bar.isNarrow ? "" : qsTr("Clear")
            tip: qsTr("Takes the textures out of the selected slots (Delete)")
            onClicked: panel.clearSelected()
        }
        IconButton {
            objectName: "crop"
            icon.name: "crop"
            text: bar.isNarrow ? "" : qsTr("Crop")
            tip: qsTr("Takes out empty slots, whole rows of them")
            onClicked: panel.crop()
        }
        IconButton {
            objectName: "smaller"
            icon.name: "zoom-out"
            tip: qsTr("Smaller (-)")
            onClicked: view.setZoom(context.settings.zoomFactor / 1.25)
        }
        Label {
            objectName: "zoom"
            Layout.preferredWidth: 42
            horizontalAlignment: Text.AlignHCenter
            color: Theme.secondary
            text: Math.round(context.settings.zoomFactor * 100) + " %"
        }
        IconButton {
            objectName: "larger"
            icon.name: "zoom-in"
            tip: qsTr("Larger (+)")
            onClicked: view.setZoom(context.settings.zoomFactor * 1.25)
        }
    }
}
