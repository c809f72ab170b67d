import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// The controls of the project's filter, each bound to its predicate.
Rectangle {
    id: bar

    property var panel
    readonly property var filter: panel.filter

    readonly property bool isNarrow: width < 780
    signal left // towards the rows

    function focusText() { nameField.forceActiveFocus() }

    implicitHeight: Theme.barHeight + 4
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        spacing: Theme.spacing

        SearchField {
            id: nameField

            objectName: "text"
            Layout.fillWidth: true
            Layout.preferredWidth: 160
            Layout.minimumWidth: 90
            placeholderText: qsTr("Name contains")
            tip: qsTr("Shows what has this text in its name (Ctrl+F)")
            text: filter.text.text
            onTextEdited: filter.text.text = text
            Keys.onDownPressed: bar.left()
            onAccepted: bar.left()
        }
        TokensField {
            objectName: "words"
            Layout.fillWidth: true
            Layout.preferredWidth: 230
            Layout.minimumWidth: 150
            placeholderText: qsTr("Words in name, path or kind")
            tip: qsTr("Words parted by spaces")
            text: filter.words.text
            type: filter.wordsType
            onTextEdited: filter.words.text = text
            onTypeChosen: filter.wordsType = type
        }
        IconButton {
            objectName: "ancestors"
            checkable: true
            checked: filter.withAncestors
            icon.name: "ancestors"
            text: bar.isNarrow ? "" : qsTr("Match ancestors")
            tip: qsTr("Match ancestors: a row matches also when one of its ancestors does")
            onToggled: filter.withAncestors = checked
        }
        IconButton {
            objectName: "invert"
            checkable: true
            checked: filter.isInverted
            icon.name: "invert"
            text: bar.isNarrow ? "" : qsTr("Invert")
            tip: qsTr("Invert: shows what does not match")
            onToggled: filter.isInverted = checked
        }
        IconButton {
            objectName: "clear"
            enabled: filter.isActive
            icon.name: "clear"
            text: bar.isNarrow ? "" : qsTr("Clear")
            tip: qsTr("Ends all filters")
            onClicked: filter.clear()
        }
        Rectangle {
            implicitWidth: 1
            implicitHeight: 16
            color: Theme.outline
        }
        IconButton {
            objectName: "expandAll"
            icon.name: "expand-all"
            tip: qsTr("Expand all")
            onClicked: panel.rows.expandAll()
        }
        IconButton {
            objectName: "collapseAll"
            icon.name: "collapse-all"
            tip: qsTr("Collapse all")
            onClicked: panel.rows.collapseAll()
        }
        IconButton {
            objectName: "reload"
            icon.name: "reload"
            tip: qsTr("Read the project again (F5)")
            onClicked: panel.reload()
        }
    }
}
