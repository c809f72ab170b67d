#include "tool.h"

#include <datamodels/atlas/atlas_tile.h>
#include <host/engine/atlas_file.h>

#include <algorithm>

using Ozy::Fennel::AtlasFile;
using Ozy::Fennel::AtlasTexture;

namespace atlas_tool {
namespace {

QString described(const AtlasTexture::AtlasData& data)
{
    const auto filled = std::count_if(data.tiles.begin(), data.tiles.end(), [](const auto& tile) { return !tile.second.empty(); });
    const unsigned side = data.tiles.empty() ? 0 : data.tiles.front().first.right - data.tiles.front().first.left;
    const QString grid = side == 0 ? QString("no grid")
                                   : QString("%1 by %2 slots of %3 pixels").arg(data.width / side).arg(data.height / side).arg(side);
    return QString("%1 by %2 pixels, %3, %4 filled").arg(data.width).arg(data.height).arg(grid).arg(filled);
}

} // namespace

int info(const Request& request)
{
    int result = 0;
    for (const QString& path : request.paths) {
        const QString base = basePath(path);
        print(base);
        for (std::size_t type = 0; type < AtlasTile::TypeNames.size(); ++type) {
            const AtlasFile::Decoded file = AtlasFile::read(filePath(base, type).toStdString());
            if (file.data)
                print(QString("  %1: %2").arg(QString::fromStdString(AtlasTile::TypeNames[type]), described(*file.data)));
            else
                result = refuse(QString("%1 %2").arg(filePath(base, type), QString::fromStdString(file.fault)));
        }
    }
    return result;
}

} // namespace atlas_tool
