import QtQuick 2.15
import Editor 1.0

// A field for several words, with the choice whether a row needs all of them or any.
Row {
    property alias text: field.text
    property alias placeholderText: field.placeholderText
    property alias tip: field.tip
    property alias type: choice.currentIndex
    signal textEdited
    signal typeChosen(int type)

    spacing: 2

    SearchField {
        id: field

        objectName: "field"
        width: parent.width - choice.width - parent.spacing
        iconName: "words"
        onTextEdited: parent.textEdited()
    }
    SegmentedSwitch {
        id: choice

        objectName: "choice"
        labels: [qsTr("All"), qsTr("Any")]
        tips: [qsTr("A row must contain all of the words"), qsTr("A row must contain one of the words")]
        onChosen: parent.typeChosen(index)
    }
}
