#include "sample_atlas.h"

#include <datamodels/atlas/atlas_texture_commands.h>
#include <host/registry/instances.h>
#include <host/resources/multi_file_system.h>
#include <host/undo/commit_changes_scope.h>

#include <QImage>

using Ozy::Fennel::AtlasTexture;

bool AtlasAssetAccess::addTextures(AtlasAsset& asset, const QStringList& files)
{
    return Ozy::CommitChangesScope::makeCommand<AtlasAsset::AddTexturesCommand>(&asset, files);
}

AtlasDesk::AtlasDesk()
{
    disk.makeDirectory("content");
    Ozy::FS::fileSystem()->setRoots({disk.bytes()});
    instances::set<IAtlasManager>(&manager);
}

AtlasDesk::~AtlasDesk()
{
    instances::set<IAtlasManager>(nullptr);
    Ozy::FS::fileSystem()->setRoots({});
}

void AtlasDesk::writeImage(const QString& name, QSize size) const
{
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(Qt::darkGreen);
    if (!image.save(disk.path(name)))
        throw std::runtime_error("disk refuses " + name.toStdString());
}

void AtlasDesk::writeTextures(const QStringList& stems) const
{
    for (const QString& stem : stems) {
        writeImage(QString::fromStdString(textureOf(stem, "AM")), 2 * tileSize);
        writeImage(QString::fromStdString(textureOf(stem, "GBMT")), 2 * tileSize);
        writeImage(QString::fromStdString(textureOf(stem, "MAO")), tileSize);
    }
}

AtlasTexture::AtlasData AtlasDesk::dataOf(AtlasType type, AtlasViewData::Point grid, const QStringList& stems)
{
    const unsigned side = AtlasTile::isHalfSize(type) ? tileSize / 2 : tileSize;
    const QString typeName = QString::fromStdString(AtlasTile::TypeNames[std::size_t(type)]);
    AtlasData data;
    data.leadingFlag = 1;
    data.width = side * unsigned(grid.x);
    data.height = side * unsigned(grid.y);
    data.fullSizeFlag = AtlasTile::isHalfSize(type) ? 0 : 1;
    for (int slot = 0; slot < stems.size(); ++slot) {
        const unsigned left = side * unsigned(slot % grid.x);
        const unsigned top = side * unsigned(slot / grid.x);
        if (stems[slot] != "-")
            data.tiles.push_back({{left, left + side, top, top + side}, textureOf(stems[slot], typeName)});
    }
    return data;
}

void AtlasDesk::writeAtlas(AtlasViewData::Point grid, const QStringList& stems) const
{
    QStringList names = stems;
    names.removeAll("-");
    writeTextures(names);
    for (AtlasType type : {AtlasType::AM, AtlasType::GBMT, AtlasType::MAO})
        writeData(type, dataOf(type, grid, stems));
}

void AtlasDesk::writeData(AtlasType type, const AtlasData& data, const QString& atlas) const
{
    const std::string path = file(atlas) + AtlasAsset::atlasFilenameSuffix(type);
    if (!AtlasTexture::makeAtlasFile(path, data, nullptr))
        throw std::runtime_error("no atlas at " + path);
}

AtlasTexture::AtlasData AtlasDesk::read(const QString& name) const
{
    return manager.getAtlasData(file(name));
}

QStringList stemsOf(const AtlasAsset& asset)
{
    QStringList stems;
    for (const std::shared_ptr<AtlasTile>& tile : *asset.data().tiles) {
        const QString name = QString::fromStdString(tile->texturePath(AtlasType::AM)).section('/', -1);
        stems << (name.isEmpty() ? "-" : name.section("_AM", 0, 0));
    }
    return stems;
}

QString gridOf(const AtlasAsset& asset)
{
    return QString("%1x%2").arg(asset.data().tilesCount.x).arg(asset.data().tilesCount.y);
}

std::string textureOf(const QString& stem, const QString& type)
{
    return QString("content/%1_%2.png").arg(stem, type).toStdString();
}

QStringList propertyNames(const zarn::ReflectedObject& object)
{
    QStringList names;
    for (std::size_t i = 0; i < object.propertyCount(); ++i)
        names << QString::fromStdString(object.propertyAt(i).name());
    return names;
}
