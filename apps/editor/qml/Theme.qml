pragma Singleton
import QtQuick 2.15

// Every colour, size and font of the editor.
QtObject {
    readonly property color window: "#1b1d21"
    readonly property color pane: "#212429"
    readonly property color raised: "#2a2e34"
    readonly property color field: "#17191c"
    readonly property color line: "#121417"
    readonly property color outline: "#3a3f47"
    readonly property color guide: "#31363d"

    readonly property color text: "#d6dae0"
    readonly property color secondary: "#98a0ab"
    readonly property color faint: "#6b737e"
    readonly property color accent: "#5c9fe0"
    readonly property color accentText: "#ffffff"
    readonly property color good: "#7fc8a9"
    readonly property color pending: "#e0a868"
    readonly property color bad: "#d9716b"

    readonly property color hover: "#282c32"
    readonly property color selection: "#2a4768"
    readonly property color selectionInactive: "#343a43"
    readonly property color match: "#ffe9a6"
    readonly property color matchBackground: "#5f5020"

    readonly property var kindColors: ({
        "folder": "#c9a86a", "texture": "#7db3e8", "model": "#c79be6", "material": "#e08fa8", "level": "#7fc8a9",
        "map": "#9fc46b", "script": "#e0a868", "sound": "#6fc3d0", "effect": "#e6cc6a", "layout": "#a6aee8",
        "translation": "#8fc0b8", "document": "#a3abb6", "everything": "#98a0ab"
    })

    readonly property var nodeColors: ({
        "texture": "#7db3e8", "colour": "#e0a868", "noise": "#8fc0b8", "multiply": "#a6aee8", "mix": "#c79be6",
        "rim": "#e6cc6a", "surface": "#e08fa8"
    })

    readonly property var sceneColors: ({
        "folder": "#c9a86a", "actor": "#7db3e8", "lamp": "#ffd166", "flag": "#7fc8a9", "path": "#a6aee8", "point": "#98a0ab"
    })

    readonly property int rowHeight: 22
    readonly property int barHeight: 30
    readonly property int controlHeight: 24
    readonly property int spacing: 6
    readonly property int margin: 8
    readonly property int indent: 16
    readonly property int scrollWidth: 10
    readonly property int radius: 3
    readonly property int iconSize: 16

    readonly property string fontFamily: "Inter"
    readonly property string monoFamily: "DejaVu Sans Mono"
    readonly property font font: Qt.font({ family: fontFamily, pixelSize: 12 })
    readonly property font smallFont: Qt.font({ family: fontFamily, pixelSize: 11 })
    readonly property font strongFont: Qt.font({ family: fontFamily, pixelSize: 12, weight: Font.DemiBold })
    readonly property font monoFont: Qt.font({ family: monoFamily, pixelSize: 11 })
}
