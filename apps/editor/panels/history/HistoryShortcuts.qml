import QtQuick 2.15

// The keys of a document while it shows: undo, redo, save.
Item {
    id: shortcuts

    property var document

    Shortcut {
        sequence: "Ctrl+Z"
        enabled: shortcuts.visible
        onActivated: document.history.undo()
    }
    Shortcut {
        sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]
        enabled: shortcuts.visible
        onActivated: document.history.redo()
    }
    Shortcut {
        sequence: "Ctrl+S"
        enabled: shortcuts.visible
        onActivated: document.save()
    }
}
