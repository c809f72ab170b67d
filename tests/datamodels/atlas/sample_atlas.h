#pragma once

#include <datamodels/atlas/atlas_asset.h>
#include <host/engine/atlas_manager.h>
#include <host/reflection/static_meta_object.h>
#include <support/disk_folder.h>

#include <QSize>
#include <QStringList>

/// Calls what is private for good: a resize of both halves at once.
class AtlasAssetAccess
{
public:
    static void setTilesCount(AtlasAsset& asset, AtlasViewData::Point count) { asset.setTilesCount(count); }
    /// As after a refused resize: the grid stays.
    static void request(AtlasAsset& asset, AtlasViewData::Point count) { asset.m_requestedTilesCount = count; }
    /// As if the user had chosen the files in the dialog.
    static bool addTextures(AtlasAsset& asset, const QStringList& files);
    static std::vector<std::size_t> freeSlots(const AtlasAsset& asset) { return asset.getFreeSlotIndexes(); }
};

/// The resources and the atlas service of the process while it lives: an empty directory on the disk.
class AtlasDesk
{
public:
    using AtlasData = Ozy::Fennel::AtlasTexture::AtlasData;

    /// In pixels, of a tile in the AM and GBMT atlas. Source images are twice as wide.
    static constexpr unsigned tileSize = 4;

    AtlasDesk();
    ~AtlasDesk();
    Q_DISABLE_COPY_MOVE(AtlasDesk)

    std::string file(const QString& name) const { return disk.bytes(name); }

    void writeImage(const QString& name, QSize size) const;
    void writeImage(const QString& name, int side) const { writeImage(name, QSize(side, side)); }
    /// "content/<stem>_AM.png" and its companions, in the sizes that fit.
    void writeTextures(const QStringList& stems) const;

    /// What a file of a grid holds: one entry a stem, "-" for a slot without one.
    static AtlasData dataOf(AtlasType type, AtlasViewData::Point grid, const QStringList& stems);
    /// The files of the atlas "content/sheet", and the textures of its stems.
    void writeAtlas(AtlasViewData::Point grid, const QStringList& stems) const;
    void writeData(AtlasType type, const AtlasData& data, const QString& atlas = "content/sheet") const;
    AtlasData read(const QString& name) const;

    DiskFolder disk;
    mutable Ozy::Fennel::AtlasManager manager;
};

/// The AM texture of each slot by its stem, "-" for none.
QStringList stemsOf(const AtlasAsset& asset);
/// The grid of an atlas, "3x2".
QString gridOf(const AtlasAsset& asset);
/// "content/oak_AM.png", for the stem "oak".
std::string textureOf(const QString& stem, const QString& type = "AM");
/// Of all properties of an object, in order.
QStringList propertyNames(const zarn::ReflectedObject& object);
