import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

T.ScrollBar {
    id: bar

    implicitWidth: Theme.scrollWidth
    implicitHeight: Theme.scrollWidth
    padding: 2
    minimumSize: 0.06
    visible: size < 1

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: bar.pressed ? Theme.secondary : bar.hovered ? Theme.faint : Theme.outline
    }
}
