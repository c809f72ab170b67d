#include "tool.h"

#include <datamodels/atlas/atlas_asset.h>

#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace atlas_tool {

QString basePath(const QString& path)
{
    const std::string absolute = QFileInfo(path).absoluteFilePath().toStdString();
    for (const std::string& type : AtlasTile::TypeNames) {
        const std::string suffix = AtlasAsset::atlasFilenameSuffix(type);
        if (absolute.ends_with(suffix))
            return QString::fromStdString(absolute.substr(0, absolute.size() - suffix.size()));
    }
    return QString::fromStdString(absolute);
}

QString filePath(const QString& base, std::size_t type)
{
    return base + QString::fromStdString(AtlasAsset::atlasFilenameSuffix(AtlasTile::TypeNames[type]));
}

void print(const QString& line)
{
    std::printf("%s\n", qUtf8Printable(line));
}

int refuse(const QString& reason)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(reason));
    return 1;
}

} // namespace atlas_tool
