import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// A list that drops down from what it belongs to; `current` is marked, a click chooses.
T.Popup {
    id: popup

    property var choices: []
    property string current
    signal chosen(string choice)

    // Upwards where there is no room below.
    readonly property real below: parent ? T.Overlay.overlay.height - parent.mapToItem(null, 0, parent.height).y : 0

    y: parent ? (below < implicitHeight + 8 ? -implicitHeight - 2 : parent.height + 2) : 0
    width: Math.max(parent ? parent.width : 0, 140)
    implicitHeight: Math.min(list.contentHeight, 12 * Theme.rowHeight) + 2
    padding: 1
    focus: true

    background: Rectangle {
        color: Theme.raised
        border.color: Theme.outline
        radius: Theme.radius
    }
    contentItem: ListView {
        id: list

        objectName: "choices"
        clip: true
        focus: true
        boundsBehavior: Flickable.StopAtBounds
        model: popup.choices
        currentIndex: Math.max(0, popup.choices.indexOf(popup.current))
        T.ScrollBar.vertical: ScrollHandle { }

        function choose(choice) {
            popup.close()
            popup.chosen(choice)
        }
        Keys.onReturnPressed: choose(popup.choices[currentIndex])
        Keys.onEnterPressed: choose(popup.choices[currentIndex])

        delegate: Rectangle {
            objectName: "choice-" + modelData
            width: list.width
            height: Theme.rowHeight
            color: area.containsMouse ? Theme.selection : ListView.isCurrentItem ? Theme.outline : "transparent"
            Label {
                anchors.fill: parent
                leftPadding: Theme.margin
                rightPadding: Theme.margin
                elide: Text.ElideMiddle
                text: modelData
                color: modelData === popup.current ? Theme.accent : Theme.text
            }
            MouseArea {
                id: area

                anchors.fill: parent
                hoverEnabled: true
                onClicked: list.choose(modelData)
            }
        }
    }
}
