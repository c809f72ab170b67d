import QtQuick 2.15
import QtQuick.Window 2.15
import Editor 1.0

Image {
    property string name
    property color color: Theme.secondary
    property int size: Theme.iconSize

    width: size
    height: size
    sourceSize: Qt.size(size * Screen.devicePixelRatio, size * Screen.devicePixelRatio)
    source: name ? "image://icon/" + name + "/" + color.toString().slice(-6) : ""
}
