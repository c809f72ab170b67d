import QtQuick 2.15
import QtQuick.Layouts 1.15
import Editor 1.0

// Which channels show, where the pointer is, and how large a pixel is.
Rectangle {
    property var panel
    property var canvas

    implicitHeight: Theme.barHeight + 4
    color: Theme.pane

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.margin
        anchors.rightMargin: Theme.margin
        spacing: Theme.spacing

        ChannelSwitches {
            objectName: "channels"
            model: panel.channels
            onAlone: panel.showAlone(row)
        }
        Label {
            objectName: "pixel"
            Layout.fillWidth: true
            leftPadding: Theme.margin
            font: Theme.smallFont
            color: Theme.faint
            text: canvas.pixelText
        }
        IconButton {
            objectName: "smaller"
            icon.name: "zoom-out"
            tip: qsTr("Smaller (-)")
            onClicked: canvas.step(-1)
        }
        Label {
            objectName: "zoom"
            Layout.preferredWidth: 44
            horizontalAlignment: Text.AlignHCenter
            color: Theme.secondary
            text: Math.round(canvas.zoom * 100) + " %"
        }
        IconButton {
            objectName: "larger"
            icon.name: "zoom-in"
            tip: qsTr("Larger (+)")
            onClicked: canvas.step(1)
        }
        IconButton {
            objectName: "actual"
            text: "1:1"
            tip: qsTr("A pixel of the image is one of the screen (1)")
            onClicked: canvas.showActual()
        }
        IconButton {
            objectName: "fit"
            icon.name: "fit"
            text: qsTr("Fit")
            checked: canvas.isFitting
            tip: qsTr("Shows all of the image (F)")
            onClicked: canvas.fit()
        }
    }
}
