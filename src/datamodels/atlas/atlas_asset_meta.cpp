#include <datamodels/atlas/atlas_asset.h>

#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>
#include <host/reflection/string_join_reduce.h>
#include <host/resources/utils.h>

template <>
struct zarn::Reflection<AtlasAsset>
{
    static constexpr const char* name = "AtlasAsset";

    static Annotations annotations()
    {
        return {Meta::MultiSelection::ObjectType{[](const ReflectedObject&) { return "Atlas"; }}};
    }

    static std::string objectName(const AtlasAsset& asset)
    {
        return std::string(Ozy::FS::Utils::getBasename(asset.m_basePath));
    }
    static qelm::Variant objectIcon(const BoundProperty& property)
    {
        return property.object().findPropertyByName("_typeIcon").get();
    }
    static int columns(const AtlasAsset& asset) { return asset.m_requestedTilesCount.x; }
    static int rows(const AtlasAsset& asset) { return asset.m_requestedTilesCount.y; }
    static void setColumns(AtlasAsset& asset, int columns) { asset.requestTilesCount(&AtlasViewData::Point::x, columns); }
    static void setRows(AtlasAsset& asset, int rows) { asset.requestTilesCount(&AtlasViewData::Point::y, rows); }
    static Meta::MinMax::Range tilesRange(const BoundProperty& property, ryk::Flags<SetterFlag> how)
    {
        if (how.test(SetterFlag::Unlimited))
            return {};
        return std::pair(qelm::Variant(1), property.object().findPropertyByName("_maxTiles").get());
    }

    static void declare(StaticMetaObject<AtlasAsset>::Builder& asset)
    {
        asset.field("_maxTiles", &AtlasAsset::m_maxTiles);
        asset.with(StringJoinReduce::meta(",", false))
            .readOnly("_typeName", [] { return std::string("Atlas"); })
            .readOnly("_typeIcon", [] { return std::string("resources/images/texture_asset/texture-atlas.svg"); })
            .readOnly("_objectName", &objectName)
            .readOnly("_objectIcon", &objectIcon);
        // Stateless: the commands of a resize record what undoes it.
        asset.with(Meta::Stateless(1), Meta::Precision{0}, Meta::MinMax(&tilesRange))
            .value("tilesCountX", &columns, &setColumns, Meta::Label::Text("Columns"))
            .value("tilesCountY", &rows, &setRows, Meta::Label::Text("Rows"));
        asset.method("addTextures", &AtlasAsset::addTextures, Meta::Label::Visible(false), Meta::Button::Text("Add textures"),
                     Meta::Layout::FillWidth());
        asset.method("crop", &AtlasAsset::crop, Meta::Label::Visible(false), Meta::Button::Text("Crop texture atlas"),
                     Meta::Selection{3}, Meta::Layout::FillWidth());
        asset.readOnly(
            "tiles", [](AtlasAsset& self) { return &self.m_data.tiles; }, Meta::Label::Text("Tiles"),
            Meta::Children{"*", {Meta::SceneItem(true)}});
    }
};

namespace {

const zarn::ReflectAtLoad<AtlasAsset> assetClass;
// Stateless, since the commands of the atlas record what undoes an edit.
const zarn::AutoregisterMetaObject<AtlasAsset::Tiles> tilesClass(
    "AtlasTiles", {Meta::Stateless(1), Meta::Children{"*", {Meta::SceneItem(true)}}});

} // namespace
