import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// The words to look for, and what was found so far.
FocusScope {
    id: pane

    property var panel
    readonly property var search: panel.search
    readonly property int sizeWidth: 76
    readonly property int placeWidth: width < 480 ? 0 : width * 0.42
    readonly property int nameWidth: width - placeWidth - sizeWidth - Theme.scrollWidth

    function focusField() { field.forceActiveFocus() }
    function step(by) {
        search.step(by)
        list.positionViewAtIndex(search.current, ListView.Contain)
        panel.show(search.current)
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.window
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: Theme.barHeight + 4
            color: Theme.pane
            RowLayout {
                anchors.fill: parent
                anchors.margins: 5
                spacing: Theme.spacing

                SearchField {
                    id: field

                    objectName: "searchText"
                    Layout.fillWidth: true
                    focus: true
                    placeholderText: qsTr("Search everywhere: words in names")
                    tip: qsTr("Looks in %1 for names with all of these words (Ctrl+F)").arg(panel.searchedPlace)
                    text: search.text
                    onTextEdited: search.text = text
                    Keys.onDownPressed: list.forceActiveFocus()
                    onAccepted: pane.step(1)
                }
                Label {
                    objectName: "found"
                    visible: field.text
                    text: search.isSearching ? qsTr("%L1 so far").arg(search.count)
                          : search.current < 0 ? qsTr("%L1 found").arg(search.count)
                          : qsTr("%L1 of %L2").arg(search.current + 1).arg(search.count)
                    color: search.isSearching ? Theme.pending : Theme.secondary
                }
                IconButton {
                    objectName: "previous"
                    enabled: search.count > 0
                    rotation: 180
                    icon.name: "arrow-down"
                    tip: qsTr("The result before (Shift+F3)")
                    onClicked: pane.step(-1)
                }
                IconButton {
                    objectName: "next"
                    enabled: search.count > 0
                    icon.name: "arrow-down"
                    tip: qsTr("The next result (F3)")
                    onClicked: pane.step(1)
                }
            }
        }
        Row {
            Repeater {
                model: [
                    { title: qsTr("Name"), role: "display", width: pane.nameWidth, alignment: Text.AlignLeft },
                    { title: qsTr("Folder"), role: "path", width: pane.placeWidth, alignment: Text.AlignLeft },
                    { title: qsTr("Size"), role: "size", width: pane.sizeWidth + Theme.scrollWidth, alignment: Text.AlignRight }
                ]
                HeaderCell {
                    id: header

                    readonly property int order: search.order.length, search.orderOf(modelData.role)

                    width: modelData.width
                    visible: width > 0
                    text: modelData.title
                    role: modelData.role
                    alignment: modelData.alignment
                    sortedBy: order ? modelData.role : ""
                    isDescending: order === 2

                    MouseArea {
                        anchors.fill: parent
                        onClicked: search.sortBy(header.role, mouse.modifiers & Qt.ShiftModifier)
                    }
                }
            }
        }
        ListView {
            id: list

            objectName: "results"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            currentIndex: -1
            reuseItems: true
            model: search.results
            T.ScrollBar.vertical: ScrollHandle { }

            Keys.onDownPressed: pane.step(1)
            Keys.onUpPressed: pane.step(-1)

            delegate: ResultRow {
                width: list.width
                panel: pane.panel
                nameWidth: pane.nameWidth
                placeWidth: pane.placeWidth
                sizeWidth: pane.sizeWidth
                isCurrent: index === search.current
                isActive: list.activeFocus
                onPicked: {
                    list.forceActiveFocus()
                    search.current = index
                    panel.show(index)
                }
            }
            EmptyState {
                objectName: "noResults"
                visible: search.count === 0 && !search.isSearching
                iconName: field.text ? "nothing" : "search"
                text: field.text ? qsTr("Nothing in %1 has these words").arg(panel.searchedPlace)
                                 : qsTr("What you type is looked for in %1").arg(panel.searchedPlace)
                actionText: field.text ? qsTr("Clear the words") : ""
                onAction: search.text = ""
            }
        }
    }
}
