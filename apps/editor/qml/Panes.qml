import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

// Panes side by side with borders that can be dragged.
T.SplitView {
    handle: Rectangle {
        implicitWidth: 5
        implicitHeight: 5
        color: T.SplitHandle.pressed ? Theme.accent : T.SplitHandle.hovered ? Theme.outline : Theme.line
    }
}
