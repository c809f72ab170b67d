import QtQuick 2.15
import Editor 1.0

Text {
    color: Theme.text
    font: Theme.font
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
    textFormat: Text.PlainText
}
