import QtQuick 2.15
import QtQuick.Templates 2.15 as T
import Editor 1.0

T.ToolTip {
    id: tip

    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: parent ? parent.height + 4 : 0
    implicitWidth: contentItem.implicitWidth + 2 * Theme.margin
    implicitHeight: contentItem.implicitHeight + 8
    margins: 4
    delay: 600
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnReleaseOutsideParent

    contentItem: Label {
        text: tip.text
        font: Theme.smallFont
        leftPadding: Theme.margin
        topPadding: 4
    }
    background: Rectangle {
        color: Theme.raised
        border.color: Theme.outline
        radius: Theme.radius
    }
}
