import QtQuick 2.15
import Editor 1.0

// What shows through transparent pixels.
Image {
    fillMode: Image.Tile
    horizontalAlignment: Image.AlignLeft
    verticalAlignment: Image.AlignTop
    sourceSize: Qt.size(16, 16)
    source: "image://icon/checker/" + Theme.raised.toString().slice(-6)
}
