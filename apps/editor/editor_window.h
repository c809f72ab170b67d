#pragma once

#include <QQmlApplicationEngine>

class QQuickWindow;

namespace editor {

class Tabs;

/// The QML side of the editor: the engine with the editor's own types, and the window that it loads.
/// The tabs must outlive it. Thread: GUI.
class EditorWindow
{
public:
    explicit EditorWindow(Tabs& tabs);
    ~EditorWindow();
    Q_DISABLE_COPY_MOVE(EditorWindow)

    /// Null if the QML could not be loaded; the engine has said why.
    QQuickWindow* window() const;

    /// Chooses the renderer, before the first window: software where there is no OpenGL, and for pictures, which then
    /// look the same everywhere.
    static void chooseRenderer(bool forPictures);

private:
    QQmlApplicationEngine m_engine;
};

/// Makes the controls written in C++ known to QML; once a process.
void registerControls();

} // namespace editor
