#pragma once

#include <datamodels/atlas/i_atlas_tile.h>
#include <host/base/flags.h>
#include <host/reflection/object.h>
#include <host/reflection/reflection_flags.h>

#include <array>
#include <memory>

class AtlasAsset;

/// One slot of an `AtlasAsset`: the three source textures that go into it.
///
/// The source images are twice as wide and high as the slot, which they fill exactly. `AM` drives the others: setting it
/// sets the companions of the same name, and all three are refused if one of them does not fit. The others can be set and
/// emptied by themselves. Reflected as "AtlasTile", with the textures as "AM", "GBMT" and "MAO" and the method "clear";
/// edits by the reflection can be undone.
///
/// Its asset and views share it. It may outlive the asset, and takes no new texture from then on. Cost: setting a texture
/// reads its image, for `AM` all three. Thread: GUI only.
class DATAMODELS_API AtlasTile : public IAtlasTile, public zarn::Object
{
public:
    /// The names of the classes, in their order.
    static const std::array<std::string, 3> TypeNames;

    /// `textures` are none or three names of resources, which are not checked.
    AtlasTile(AtlasAsset& asset, std::size_t index, std::vector<std::string> textures);
    ~AtlasTile() override;

    const std::vector<std::string>& textures() const override { return m_textures; }

    std::size_t index() const { return m_index; }
    /// Tells nobody.
    void setIndex(std::size_t index) { m_index = index; }

    /// The name of a class's texture. A value that is no class fails an assertion and gets that of `AM`.
    const std::string& texturePath(AtlasType type) const;
    /// The name of the `AM` texture with the slot before it, or "No image".
    std::string objectName() const;
    /// Warns while the `GBMT` or the `MAO` texture has no file.
    std::string objectIcon() const;

    bool isEmpty() const;
    bool isComplete() const;
    static bool isHalfSize(AtlasType type) { return type == AtlasType::MAO; }
    /// The texture of another class that goes with an AM texture.
    static std::string companionOf(const std::string& path, AtlasType type);

    /// Sets or, with an empty name, clears a texture; for `AM` the others too. False, with a message and nothing changed,
    /// if a file is missing, is no image or has another size. Listeners are told in any case.
    bool setTexture(AtlasType type, const std::string& path);
    /// Clears all three by way of the reflection.
    void clear();

private:
    friend class AtlasAsset;
    friend class IAtlasTile;

    static bool checkTexture(AtlasType type, int tileSize, const std::string& path);
    void followProperties() const;
    void onPropertyChanged(AtlasType type, ryk::Flags<zarn::SetterFlag> how, ryk::Flags<zarn::NotifyFlag> what) const;
    int tileSize() const;

    std::weak_ptr<const AtlasAsset> m_asset; // a preview's tiles stay when it has gone
    std::size_t m_index;
    std::vector<std::string> m_textures;
    mutable std::vector<ryk::ScopedConnection> m_connections; // to its own properties, once somebody listens
};
