#pragma once

#include "level_objects.h"

#include <QByteArray>
#include <QString>

namespace editor {

/// What reading or writing a level's file comes to: the level, or why there is none, in words for the user.
struct LevelFile
{
    static constexpr int version = 1;
    static constexpr int largest = 32 << 20; ///< bytes

    std::shared_ptr<Level> level;
    QString error;

    /// From the disk. Whatever is wrong with the file, nothing is read of it.
    static LevelFile read(const QString& path);
    static LevelFile parse(const QByteArray& text);

    /// The whole file; empty if objects lie too deep in each other.
    static QByteArray text(Level& level);
    /// Puts the file in the place of the old one when all of it is on the disk. Empty on success; else why the old one
    /// is still there.
    static QString write(const QString& path, Level& level);
};

} // namespace editor
