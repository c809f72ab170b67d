import QtQuick 2.15

GridView {
    cellWidth: 100
    cellHeight: 100
    focus: true
    model: list
    delegate: Text {
        width: 100
        height: 100
        text: model.display

        MouseArea {
            anchors.fill: parent
            onPressed: selector.pressed(index)
        }
    }
}
