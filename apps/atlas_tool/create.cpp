#include "tool.h"

#include <datamodels/atlas/atlas_asset.h>
#include <host/base/string_utils.h>
#include <host/engine/render_system.h>
#include <host/resources/multi_file_system.h>

#include <QDir>
#include <QScopeGuard>

#include <algorithm>
#include <cmath>

using Ozy::Fennel::AtlasTexture;

namespace atlas_tool {
namespace {

QStringList texturesIn(const QDir& folder)
{
    QStringList names = folder.entryList({QStringLiteral("*_AM.png")}, QDir::Files, QDir::Unsorted);
    std::sort(names.begin(), names.end(), [](const QString& left, const QString& right) {
        return Ozy::StringUtils::NumericStringCompare(left.toStdString(), right.toStdString());
    });
    return names;
}

/// Half the side of a square image; 0 if it has none.
int tileSizeOf(const QString& path)
{
    unsigned width = 0;
    unsigned height = 0;
    const auto image = Ozy::Fennel::rs().resIL()->createImage();
    image->loadImage(path.toStdWString());
    image->getDimensions(width, height);
    return width == height ? static_cast<int>(width / 2) : 0;
}

/// Three files of an atlas without textures; false with the reason in the log.
bool writeEmptyAtlas(const QString& base, int columns, int rows, int tileSize)
{
    bool isWritten = true;
    for (std::size_t type = 0; type < AtlasTile::TypeNames.size(); ++type) {
        const bool isHalf = AtlasTile::isHalfSize(static_cast<AtlasType>(type));
        const auto side = static_cast<unsigned>(isHalf ? tileSize / 2 : tileSize);
        AtlasTexture::AtlasData data;
        data.leadingFlag = 1;
        data.width = side * static_cast<unsigned>(columns);
        data.height = side * static_cast<unsigned>(rows);
        data.fullSizeFlag = isHalf ? 0 : 1;
        data.tiles = {{{0, side, 0, side}, std::string()}};
        isWritten = AtlasTexture::makeAtlasFile(filePath(base, type).toStdString(), data, nullptr) && isWritten;
    }
    return isWritten;
}

void removeAtlas(const QString& base)
{
    for (std::size_t type = 0; type < AtlasTile::TypeNames.size(); ++type)
        QFile::remove(filePath(base, type));
}

bool fill(AtlasAsset& asset, const QDir& folder, const QStringList& names)
{
    bool isFilled = true;
    for (int i = 0; i < names.size(); ++i) {
        bool isResource = false;
        const std::string resource =
            Ozy::FS::fileSystem()->dissolveFilename(folder.absoluteFilePath(names[i]).toStdString(), &isResource);
        const auto tile = asset.getTile(static_cast<std::size_t>(i));
        isFilled = isResource && tile && tile->setTexture(AtlasType::AM, resource) && isFilled;
    }
    return isFilled;
}

bool exists(const QString& base)
{
    return QFile::exists(filePath(base, 0)) || QFile::exists(filePath(base, 1)) || QFile::exists(filePath(base, 2));
}

} // namespace

int create(const Request& request)
{
    const QString base = basePath(request.paths.front());
    const QDir folder(request.folder);
    const QStringList names = texturesIn(folder);
    if (!request.replaces && exists(base))
        return refuse(base + " exists; --replace writes over it");
    if (names.isEmpty())
        return refuse(folder.absolutePath() + " holds no files *_AM.png");
    const int tileSize = tileSizeOf(folder.absoluteFilePath(names.front()));
    if (tileSize < 2 || tileSize % 2 != 0)
        return refuse(names.front() + " is no square image of a side that is a multiple of 4");

    const int count = static_cast<int>(names.size());
    const int columns = request.columns > 0 ? request.columns : static_cast<int>(std::ceil(std::sqrt(count)));
    const int rows = (count + columns - 1) / columns;
    // Filled beside its place, so that what stands there stays whole until everything has been found in order.
    const QString draft = base + "-draft";
    const auto clean = qScopeGuard([&draft] { removeAtlas(draft); });
    if (exists(draft) || !writeEmptyAtlas(draft, columns, rows, tileSize))
        return refuse(draft + " could not be written");
    AtlasAsset asset(filePath(draft, 0).toStdString(), nullptr);
    if (asset.totalTilesCount() < count || !fill(asset, folder, names))
        return refuse(base + " was not written");
    asset.setAtlasPath(filePath(base, 0).toStdString());
    if (!asset.save())
        return refuse(base + " was not written as a whole");
    print(QString("%1: %2 by %3 slots of %4 pixels, %5 filled").arg(base).arg(columns).arg(rows).arg(tileSize).arg(count));
    return 0;
}

} // namespace atlas_tool
