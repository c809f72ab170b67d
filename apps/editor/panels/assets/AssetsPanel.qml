import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

FocusScope {
    id: assets

    property var panel
    readonly property var sizes: [72, 112, 176]
    property int sizeIndex: 1

    focus: true

    Shortcut { sequence: StandardKey.Find; enabled: visible; onActivated: words.forceActiveFocus() }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: Theme.barHeight + 4
            color: Theme.pane
            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: Theme.margin
                anchors.rightMargin: Theme.margin
                spacing: Theme.spacing

                SearchField {
                    id: words

                    objectName: "words"
                    Layout.fillWidth: true
                    Layout.maximumWidth: 360
                    placeholderText: qsTr("Words in name, path or kind")
                    tip: qsTr("Shows the assets that have all of these words (Ctrl+F)")
                    text: panel.words.text
                    onTextEdited: panel.words.text = text
                    Keys.onDownPressed: grid.forceActiveFocus()
                    onAccepted: grid.forceActiveFocus()
                }
                Item { Layout.fillWidth: true }
                Label {
                    text: qsTr("Pictures")
                    color: Theme.faint
                }
                SegmentedSwitch {
                    labels: [qsTr("S"), qsTr("M"), qsTr("L")]
                    tips: [qsTr("Small"), qsTr("Medium"), qsTr("Large")]
                    currentIndex: assets.sizeIndex
                    onChosen: assets.sizeIndex = index
                }
            }
        }
        AssetGrid {
            id: grid

            objectName: "grid"
            Layout.fillWidth: true
            Layout.fillHeight: true
            focus: true
            panel: assets.panel
            tileSize: assets.sizes[assets.sizeIndex]
        }
    }
}
