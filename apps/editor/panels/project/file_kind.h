#pragma once

#include <QString>

#include <vector>

namespace editor {

/// What the project's files are to an artist.
enum class FileKind
{
    Folder,
    Texture,
    Model,
    Material,
    Level,
    Map,
    Script,
    Sound,
    Effect,
    Layout,
    Translation,
    Document,
};

struct FileKindFacts
{
    FileKind kind;
    const char* title;  ///< of one; none is part of another, since a filter by title takes all that contain it
    const char* plural; ///< in lists
    const char* icon;   ///< a file of icons/, without its extension
    std::vector<const char*> extensions;
};

/// In the order of `FileKind`.
const std::vector<FileKindFacts>& fileKinds();

const FileKindFacts& factsOf(FileKind kind);

/// The kind of a file by its path in the project, with slashes. Anything unknown is a document.
FileKind kindOfFile(const QString& path);

} // namespace editor
