import QtQuick 2.15
import Editor 1.0

// A switch a channel of the image.
Row {
    id: switches

    property alias model: repeater.model
    signal alone(int row)

    spacing: 2
    Repeater {
        id: repeater

        ChannelButton {
            name: model.channelName
            enabled: model.channelAvailable
            isOn: model.channelEnabled && model.channelAvailable
            onClicked: model.channelEnabled = !model.channelEnabled
            onAlone: switches.alone(index)
        }
    }
}
