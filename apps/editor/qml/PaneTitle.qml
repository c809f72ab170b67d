import QtQuick 2.15
import Editor 1.0

Rectangle {
    property alias text: label.text

    implicitHeight: Theme.rowHeight
    color: Theme.raised
    Label {
        id: label

        anchors.fill: parent
        leftPadding: Theme.margin
        font: Theme.smallFont
        color: Theme.secondary
    }
}
