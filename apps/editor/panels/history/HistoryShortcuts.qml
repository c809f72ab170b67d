import QtQuick 2.15

// The keys of a document: undo, redo, save.
Item {
    property var document

    Shortcut { sequence: "Ctrl+Z"; enabled: parent.enabled; onActivated: document.history.undo() }
    Shortcut { sequences: ["Ctrl+Shift+Z", "Ctrl+Y"]; enabled: parent.enabled; onActivated: document.history.redo() }
    Shortcut { sequence: "Ctrl+S"; enabled: parent.enabled; onActivated: document.save() }
}
