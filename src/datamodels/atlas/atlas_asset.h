#pragma once

#include <datamodels/atlas/atlas_tile.h>
#include <datamodels/atlas/atlas_view_data.h>
#include <host/base/math.h>
#include <host/engine/atlas_texture.h>
#include <host/engine/reloader.h>
#include <host/reflection/reflection_wrapper.h>
#include <host/resources/resource_modification_listener.h>

#include <string_view>

namespace Ozy {
class ChangesController;
}
namespace zarn {
template <class T>
struct Reflection;
}

/// A texture atlas in memory: a grid of square tiles, each with three source textures, loaded from and saved to three files
/// "<name>_AM.atlas", "<name>_GBMT.atlas" and "<name>_MAO.atlas".
///
/// Without its files, or when they do not agree, it has no tiles; one message tells why. Reflected as "AtlasAsset": the
/// properties "tilesCountX" and "tilesCountY", the collection "tiles", the methods "addTextures" and "crop". A resize is a
/// step of the controller's history; the methods are recorded if the caller has a transaction open. Numbers of tiles never
/// change in another way, and no tile moves in a resize: with another number of columns it stands elsewhere in the grid.
///
/// Watches its files and textures, and tells of their changes as a `Reloader` without loading anything. The controller is
/// not owned, and null for a preview; its history goes, or is cleared, before the atlas. Needs the host's `IAtlasManager`.
/// Thread: GUI only.
class DATAMODELS_API AtlasAsset : public Ozy::ResourceModificationListener, public Ozy::Reloader, public zarn::Object
{
public:
    using Tiles = zarn::ReflectionWrapper<std::vector<std::shared_ptr<AtlasTile>>>;

    struct Descriptor
    {
        AtlasViewData::Point atlasSize;  ///< of the AM atlas in pixels
        AtlasViewData::Point tilesCount; ///< columns and rows
        Tiles tiles;                     ///< row by row
    };

    static const std::string atlasExtension;
    /// A grid with more tiles is refused: it would not fit into memory.
    static constexpr int mostTiles = 1024 * 1024;

    /// Loads the atlas that the path names; see `toAtlasResourcePath`.
    AtlasAsset(const std::string& path, Ozy::ChangesController* controller);
    ~AtlasAsset() override;

    /// What the file names of a class end in.
    static std::string atlasFilenameSuffix(const std::string& typeName) { return "_" + typeName + atlasExtension; }
    static std::string atlasFilenameSuffix(AtlasType type);
    static bool isAtlasFilename(std::string_view name);
    /// The path without the suffix of a class and without an extension, absolute if it is to be resolved.
    static std::string getAtlasBasePath(const std::string& path, bool resolve);
    /// An atlas file's name as it is; of any other the name of the AM file beside it.
    static std::string toAtlasResourcePath(const std::string& path);

    /// Where the next save goes, and what is watched. Loads nothing.
    void setAtlasPath(const std::string& path);
    void setChangesController(Ozy::ChangesController* controller) { m_changesController = controller; }

    const std::string& basePath() const { return m_basePath; }   ///< absolute, without suffix and extension
    const std::string& assetPath() const { return m_assetPath; } ///< the AM file as a resource
    const Descriptor& data() const { return m_data; }
    int tileSize() const { return m_tileSize; } ///< side in the AM atlas in pixels; 0 without tiles
    int totalTilesCount() const { return m_data.tilesCount.x * m_data.tilesCount.y; }
    /// Null past the end.
    std::shared_ptr<AtlasTile> getTile(std::size_t index);
    std::shared_ptr<const AtlasTile> getTile(std::size_t index) const;

    /// A texture of a tile was set: its class, and the slot.
    ryk::Connection connectTileChanged(std::function<void(AtlasType, std::size_t)> slot) const;
    /// Inside of the edit that changes the grid.
    ryk::Connection connectTilesCountChanged(std::function<void()> slot) const;

    /// Writes the three files, also after one has failed; true if none has. What a tile has no texture of gets no entry.
    bool save() const;
    /// Asks the user for AM textures and fills the first free slots with them; what does not fit is told in the log.
    void addTextures();
    /// Takes out empty tiles, whole rows of them, or in less than a row of filled tiles all but a last one.
    bool crop();

    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override;

protected:
    void init();

private:
    friend class AtlasTile;
    friend class AtlasAssetAccess; // of the tests
    friend struct zarn::Reflection<AtlasAsset>;
    class AddTilesCommand;
    class RemoveTilesCommand;
    class CropCommand;
    class UndoCropCommand;
    class AddTexturesCommand;
    class RemoveTexturesCommand;

    using AtlasData = Ozy::Fennel::AtlasTexture::AtlasData;
    using Entries = decltype(AtlasData::tiles);

    const AtlasData& loadAtlasData(const std::string& typeName) const;
    void createTiles(const AtlasData& am, const AtlasData& gbmt, const AtlasData& mao);
    std::shared_ptr<AtlasTile> createTile(std::size_t index, std::vector<std::string> textures);
    void fillTilesData(Entries& entries, AtlasType type) const;
    Ozy::RectT<unsigned int> getTileRect(std::size_t index, AtlasType type) const;
    std::vector<std::size_t> getFreeSlotIndexes() const;
    bool hasTexture(const std::string& path) const;
    void resetTilesIndices();
    void notifyTilesCountChange();
    void followTiles() const;
    void setTilesCount(AtlasViewData::Point point);
    void requestTilesCount(int AtlasViewData::Point::*half, int count);

    Ozy::ChangesController* m_changesController;
    std::string m_basePath;
    std::string m_resourceBasePath;
    std::string m_assetPath;
    Descriptor m_data;
    AtlasViewData::Point m_requestedTilesCount; // as the properties have it: stays after a refused resize
    int m_maxTiles = 0;
    int m_tileSize = 0;
    ryk::Signal<void(AtlasType, std::size_t)> tileChanged;
    ryk::Signal<void()> tilesCountChanged;
    mutable bool m_isFollowed = false; // whether somebody listens for changed tiles
    std::shared_ptr<AtlasAsset> m_self; // not owning: tiles, which may outlive the asset, hold it weakly
};
