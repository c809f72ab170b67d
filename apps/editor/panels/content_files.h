#pragma once

#include <QString>
#include <QStringList>

namespace editor {

/// The files of a folder of the content, and of all folders in it, whose names fit a pattern such as "*.mesh": relative to
/// the content, in order. Reads the disk.
QStringList contentFiles(const QString& content, const QString& folder, const QString& pattern);

} // namespace editor
