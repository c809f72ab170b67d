#pragma once

#include <QString>

namespace editor {

/// Gives the library what it asks the host for: the monitor of the disk, the engine's atlases, and the project as the one
/// root of the resources. The last project wins. Thread: GUI.
void installHostServices(const QString& content);

} // namespace editor
