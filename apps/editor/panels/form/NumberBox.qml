import QtQuick 2.15
import Editor 1.0

// A number within its bounds, which show as a bar below it. Dragging sideways changes it, a click leads to typing, Up and
// Down change it by one, with Shift by ten. A drag is told from `scrubbed(true)` to `scrubbed(false)`.
EntryField {
    id: box

    property var number // undefined where objects differ
    property int digits: 0
    property var least
    property var most
    property string unit
    property real labelInset: 0
    readonly property bool isBounded: least !== undefined && most !== undefined
    readonly property real step: isBounded && most - least <= 1000 ? (most - least) / 300 : 0.25
    signal changed(real number)
    signal scrubbed(bool isRunning)

    function bounded(wanted) {
        return Number((isBounded ? Math.min(Math.max(wanted, least), most) : wanted).toFixed(digits))
    }
    function enter(wanted) {
        if (!isNaN(wanted))
            changed(bounded(wanted))
    }

    value: number === undefined || number === null ? "\u2014" : number.toFixed(digits)
    leftPadding: Theme.margin + labelInset
    rightPadding: unitLabel.visible ? unitLabel.width + Theme.margin + 3 : Theme.margin
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    onEntered: enter(text.trim() ? Number(text.replace(",", ".")) : NaN)
    Keys.onUpPressed: enter((number || 0) + (event.modifiers & Qt.ShiftModifier ? 10 : 1))
    Keys.onDownPressed: enter((number || 0) - (event.modifiers & Qt.ShiftModifier ? 10 : 1))

    Label {
        id: unitLabel

        anchors.right: parent.right
        anchors.rightMargin: Theme.margin
        height: parent.height
        visible: text && box.width > 70
        text: box.unit
        font: Theme.smallFont
        color: Theme.faint
    }
    Rectangle {
        x: 1
        y: parent.height - height - 1
        visible: box.isBounded && !box.isMixed && !box.readOnly && box.most - box.least <= 1000
        width: visible ? Math.max(0, parent.width - 2) * (box.number - box.least) / (box.most - box.least) : 0
        height: 2
        radius: 1
        color: Qt.darker(Theme.accent, 1.5)
    }
    MouseArea {
        id: area

        property real from: 0
        property real start: 0
        property bool isScrubbing: false

        function finish() {
            if (isScrubbing)
                box.scrubbed(false)
            isScrubbing = false
        }

        anchors.fill: parent
        enabled: !box.activeFocus && !box.readOnly
        preventStealing: true
        cursorShape: box.isMixed ? Qt.IBeamCursor : Qt.SizeHorCursor
        onPressed: {
            from = mouse.x
            start = box.number || 0
        }
        onPositionChanged: {
            if (box.isMixed || !isScrubbing && Math.abs(mouse.x - from) < 4)
                return
            if (!isScrubbing)
                box.scrubbed(true)
            isScrubbing = true
            box.enter(start + (mouse.x - from) * box.step * (mouse.modifiers & Qt.ShiftModifier ? 0.1 : 1))
        }
        onReleased: isScrubbing ? finish() : box.forceActiveFocus()
        onCanceled: finish()
    }
}
