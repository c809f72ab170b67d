import QtQuick 2.15
import QelmTools.AtlasEditor 1.0
import Editor 1.0

// One slot: the picture of the class that is shown, its number, and a mark if it lacks that picture.
Item {
    id: slot

    readonly property GridView grid: GridView.view
    readonly property var sheet: grid.parent.parent
    readonly property var document: sheet.document
    readonly property var settings: document.context.settings
    readonly property bool isSelected: helper.selected
    readonly property bool isCurrent: GridView.isCurrentItem
    // Read again with each change of a texture or of the settings.
    readonly property var textures: [settings.red, settings.green, settings.blue, settings.alpha,
                                     atlasSlot ? atlasSlot.textures : []][4]
    readonly property int position: [textures, document.pictureOf(index, settings.tileType)][1]

    objectName: "slot-" + index
    width: grid.cellWidth
    height: grid.cellHeight

    AtlasSelectionHelper {
        id: helper

        selection: slot.document.context.selectionModel
        index: model.index
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: 2
        color: slot.isSelected ? Theme.accent : area.containsMouse ? Theme.hover : Theme.window

        CheckerBoard {
            anchors.fill: picture
            visible: picture.status === Image.Ready
        }
        Image {
            id: picture

            property bool isCounted: false
            function count(isLoading) {
                if (isCounted !== isLoading)
                    slot.sheet.loading += isLoading ? 1 : -1
                isCounted = isLoading
            }

            objectName: "picture"
            anchors.fill: parent
            anchors.margins: slot.isSelected ? 3 : 1
            asynchronous: true
            cache: false
            smooth: width < implicitWidth
            mipmap: smooth
            source: slot.position >= 0 ? slot.textures[slot.position] || "" : ""
            onStatusChanged: count(status === Image.Loading)
            Component.onDestruction: count(false)
        }
        Icon {
            anchors.centerIn: parent
            visible: slot.textures.length > 0 && (slot.position < 0 || picture.status === Image.Error)
            name: "warning"
            color: Theme.pending
        }
        Rectangle {
            visible: number.visible
            x: 2
            y: 2
            width: number.implicitWidth + 8
            height: 15
            radius: 2
            color: Theme.pane
            opacity: 0.8
        }
        Label {
            id: number

            x: 6
            y: 2
            height: 15
            visible: slot.settings.showNumbers
            font: Theme.smallFont
            text: model.index
            color: slot.textures.length > 0 ? Theme.text : Theme.faint
        }
        MouseArea {
            id: area

            anchors.fill: parent
            hoverEnabled: true
            onPressed: {
                slot.grid.forceActiveFocus()
                slot.sheet.panel.selector.pressed(model.index)
            }
        }
    }
}
