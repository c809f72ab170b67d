import QtQuick 2.15
import Editor 1.0

// A number within its bounds, which show as a bar below it. Up and Down change it by one, with Shift by ten.
EntryField {
    id: entry

    property var subject
    property string name
    readonly property var notes: subject.reflectedAnnotations(name)
    readonly property int digits: notes["Meta::Precision"] || 0
    readonly property var bounds: notes["Meta::MinMax"] || [-Infinity, Infinity]
    readonly property real number: subject[name] === undefined ? 0 : subject[name]

    function enter(wanted) {
        if (!isNaN(wanted))
            document.write(subject, name, Number(Math.min(Math.max(wanted, bounds[0]), bounds[1]).toFixed(digits)))
    }

    objectName: "entry-" + name
    value: number.toFixed(digits)
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    onEntered: enter(text.trim() ? Number(text.replace(",", ".")) : NaN)
    Keys.onUpPressed: enter(number + (event.modifiers & Qt.ShiftModifier ? 10 : 1))
    Keys.onDownPressed: enter(number - (event.modifiers & Qt.ShiftModifier ? 10 : 1))

    Rectangle {
        x: 1
        y: parent.height - height - 1
        width: Math.max(0, parent.width - 2) * (entry.number - entry.bounds[0]) / (entry.bounds[1] - entry.bounds[0])
        height: 2
        radius: 1
        color: Qt.darker(Theme.accent, 1.5)
    }
}
