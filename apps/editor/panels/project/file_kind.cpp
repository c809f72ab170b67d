#include "file_kind.h"

#include <QFileInfo>

#include <algorithm>

namespace editor {

const std::vector<FileKindFacts>& fileKinds()
{
    static const std::vector<FileKindFacts> kinds{
        {FileKind::Folder, "Folder", "Folders", "folder", {}},
        {FileKind::Texture, "Texture", "Textures", "texture", {"png", "jpg", "tga", "bmp", "tif", "exr", "hdr", "dds"}},
        {FileKind::Model, "Model", "Models", "model", {"mesh"}},
        {FileKind::Material, "Material", "Materials", "material", {"mat"}},
        {FileKind::Level, "Level", "Levels", "level", {"level"}},
        {FileKind::Map, "Map", "Maps", "map", {}},
        {FileKind::Script, "Script", "Scripts", "script", {"lua", "py"}},
        {FileKind::Sound, "Sound bank", "Sound banks", "sound", {"bank"}},
        {FileKind::Effect, "Effect", "Effects", "effect", {"fx"}},
        {FileKind::Layout, "Layout", "Layouts", "layout", {"layout"}},
        {FileKind::Translation, "Translation", "Translations", "translation", {"loc"}},
        {FileKind::Document, "Document", "Documents", "document", {}},
    };
    return kinds;
}

const FileKindFacts& factsOf(FileKind kind)
{
    return fileKinds()[static_cast<std::size_t>(kind)];
}

FileKind kindOfFile(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == QLatin1String("xml") && path.contains(QLatin1String("arena_defs/")))
        return FileKind::Map;
    for (const FileKindFacts& facts : fileKinds()) {
        const auto isIt = [&](const char* candidate) { return extension == QLatin1String(candidate); };
        if (std::any_of(facts.extensions.begin(), facts.extensions.end(), isIt))
            return facts.kind;
    }
    return FileKind::Document;
}

} // namespace editor
