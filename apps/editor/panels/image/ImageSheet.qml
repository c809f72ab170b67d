import QtQuick 2.15
import Editor 1.0
import QELM.ImagePreview 1.0
import QelmTools.AtlasEditor 1.0

// What is in the file: one image, the sides of a cube as it lies unfolded, or the slots of an atlas.
Item {
    id: sheet

    property var panel
    property real zoom: 1
    property point pointer

    readonly property bool isCube: repeater.count === 6
    readonly property int imageWidth: Math.max(1, panel.form.width)
    readonly property int imageHeight: Math.max(1, panel.form.height)
    readonly property int pixelWidth: panel.isAtlas ? Math.max(1, atlas.atlasWidth) : isCube ? 4 * imageWidth : imageWidth
    readonly property int pixelHeight: panel.isAtlas ? Math.max(1, atlas.atlasHeight) : isCube ? 3 * imageHeight : imageHeight
    // Column and row of the sides: +X, -X, +Y, -Y, +Z, -Z.
    readonly property var places: [[2, 1], [0, 1], [1, 0], [1, 2], [1, 1], [3, 1]]
    property int loading: 0
    property string decodeProblem
    readonly property string problem: !panel.path ? qsTr("No image is chosen")
        : panel.preview.status === SimpleImageModel.Error ? qsTr("%1\n%2").arg(panel.preview.statusText || qsTr("The file holds no image")).arg(panel.path)
        : panel.isAtlas ? (atlas.columnCount ? "" : qsTr("The files of the atlas do not fit together\n%1").arg(panel.path))
        : decodeProblem
    readonly property string hovered: {
        const x = Math.floor(pointer.x / zoom), y = Math.floor(pointer.y / zoom)
        if (problem || !panel.form.valid || x < 0 || y < 0 || x >= pixelWidth || y >= pixelHeight)
            return ""
        if (panel.isAtlas || !isCube)
            return qsTr("x %1, y %2").arg(x).arg(y)
        const column = Math.floor(x / imageWidth), row = Math.floor(y / imageHeight)
        const side = places.findIndex(place => place[0] === column && place[1] === row)
        return side < 0 ? "" : qsTr("%1: x %2, y %3").arg(titleOf(side)).arg(x % imageWidth).arg(y % imageHeight)
    }

    function placeOf(side) { return isCube && places[side] || [0, 0] }
    function titleOf(side) { return panel.images.data(panel.images.index(side, 0), 257) }

    visible: !problem
    width: pixelWidth * zoom
    height: pixelHeight * zoom
    onLoadingChanged: panel.loading = loading

    Connections {
        target: panel
        function onPathChanged() { sheet.decodeProblem = "" }
    }
    Repeater {
        id: repeater

        model: panel.images
        ImageSide {
            objectName: "image-" + index
            x: sheet.placeOf(index)[0] * width
            y: sheet.placeOf(index)[1] * height
            width: sheet.imageWidth * sheet.zoom
            height: sheet.imageHeight * sheet.zoom
            zoom: sheet.zoom
            uri: model.uri
            title: model.title
            ink: model.decoration
            isHidden: model.noChannels
            onCounted: sheet.loading += by
            onFailed: sheet.decodeProblem = qsTr("The image cannot be read\n%1").arg(panel.path)
            onLoaded: sheet.decodeProblem = ""
        }
    }
    QtAtlasModel {
        id: atlas

        source: panel.atlas.object
    }
    Repeater {
        model: panel.isAtlas ? atlas : null
        ImageSide {
            readonly property var settings: panel.atlas.settings
            readonly property var textures: [settings.red, settings.green, settings.blue, settings.alpha,
                                             atlasSlot ? atlasSlot.textures : []][4]

            objectName: "slot-" + index
            x: (index % atlas.columnCount) * width
            y: Math.floor(index / atlas.columnCount) * height
            width: sheet.pixelWidth / atlas.columnCount * sheet.zoom
            height: sheet.pixelHeight / atlas.rowCount * sheet.zoom
            zoom: sheet.zoom / 2 // the files of textures have twice the size of their slots
            uri: textures[settings.tileType] || ""
            onCounted: sheet.loading += by
        }
    }
}
