#pragma once

#include <QString>

class QQuickWindow;

namespace editor {

class Tabs;

/// Renders every panel in each of its shots to `directory/<panel><-suffix>.png` and prints the paths. Runs the event
/// loop meanwhile. The window must be shown. False, with a line on stderr, when a picture cannot be made.
bool takeScreenshots(QQuickWindow& window, Tabs& tabs, const QString& directory);

} // namespace editor
