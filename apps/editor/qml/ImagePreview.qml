import QtQuick 2.15
import Editor 1.0

// An image on a checkerboard, enlarged by whole pixels or reduced to fit.
Item {
    property alias source: image.source

    Rectangle {
        anchors.fill: image
        color: Theme.window
    }
    CheckerBoard {
        anchors.fill: image
    }
    Image {
        id: image

        readonly property real room: Math.min((parent.width - 24) / implicitWidth,
                                              (parent.height - 24) / implicitHeight)
        readonly property real zoom: room >= 1 ? Math.min(Math.floor(room), 8) : room

        anchors.centerIn: parent
        width: implicitWidth * zoom
        height: implicitHeight * zoom
        smooth: zoom < 1
        mipmap: zoom < 1
        cache: false
    }
}
