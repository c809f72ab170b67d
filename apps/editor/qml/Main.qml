import QtQuick 2.15
import QtQuick.Layouts 1.15
import QtQuick.Window 2.15
import Editor 1.0

Window {
    width: 1440
    height: 900
    minimumWidth: 900
    minimumHeight: 500
    visible: true
    color: Theme.window
    title: tabs.current.title + (tabs.current.panel.isModified ? "*" : "") + " \u2014 " + tabs.content

    Shortcut { sequence: "Ctrl+PgDown"; onActivated: tabs.step(1) }
    Shortcut { sequence: "Ctrl+PgUp"; onActivated: tabs.step(-1) }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        TabStrip {
            Layout.fillWidth: true
            list: tabs.list
            currentIndex: tabs.currentIndex
            onChosen: tabs.currentIndex = index
        }
        StackLayout {
            currentIndex: tabs.currentIndex
            Repeater {
                model: tabs.list
                Loader {
                    id: loader

                    readonly property var panel: modelData.panel

                    focus: index === tabs.currentIndex
                    onPanelChanged: if (panel) setSource(modelData.url, { panel: panel })
                }
            }
        }
        StatusBar {
            Layout.fillWidth: true
            text: tabs.current.panel.status
            place: tabs.content
        }
    }
}
