import QtQuick 2.15
import Editor 1.0

EntryField {
    property var subject
    property string name

    objectName: "entry-" + name
    value: subject[name]
    onEntered: document.write(subject, name, text)
}
