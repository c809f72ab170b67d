import QtQuick 2.15
import Editor 1.0

// One image of a file over a checkerboard; a side of a cube has its name and the colour of its axis.
Item {
    id: side

    property url uri
    property string title
    property color ink
    property bool isHidden: false
    property real zoom: 1
    signal counted(int by)
    signal failed
    signal loaded

    CheckerBoard {
        anchors.fill: parent
        visible: !side.isHidden && picture.status === Image.Ready
    }
    Image {
        id: picture

        property bool isCounted: false
        function count(isLoading) {
            if (isCounted !== isLoading)
                side.counted(isLoading ? 1 : -1)
            isCounted = isLoading
        }

        objectName: "picture"
        anchors.fill: parent
        visible: !side.isHidden
        cache: false
        asynchronous: true
        smooth: side.zoom < 1
        mipmap: side.zoom < 1
        source: side.uri
        onStatusChanged: {
            count(status === Image.Loading)
            if (status === Image.Error)
                side.failed()
            else if (status === Image.Ready)
                side.loaded()
        }
        Component.onDestruction: count(false)
    }
    Rectangle {
        anchors.fill: parent
        visible: side.title || side.isHidden || !side.uri.toString()
        color: "transparent"
        border.color: side.title ? side.ink : Theme.outline
    }
    Label {
        anchors.centerIn: parent
        visible: side.isHidden && parent.width > 80
        text: qsTr("No channel is shown")
        color: Theme.faint
    }
    Rectangle {
        visible: side.title && parent.width > 50
        width: label.implicitWidth + 2 * 6
        height: 18
        color: Theme.pane
        opacity: 0.85
    }
    Label {
        id: label

        x: 6
        height: 18
        visible: side.title && parent.width > 50
        font: Theme.smallFont
        text: side.title
        color: Qt.lighter(side.ink, 1.2)
    }
}
