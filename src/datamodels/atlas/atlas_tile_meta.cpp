#include <datamodels/atlas/atlas_tile.h>

#include <host/reflection/set_property.h>
#include <host/reflection/static_meta_object.h>
#include <host/reflection/string_join_reduce.h>
#include <host/undo/commit_changes_scope.h>

namespace {

using How = ryk::Flags<zarn::SetterFlag>;

template <AtlasType type>
std::string texture(const AtlasTile& tile)
{
    return tile.texturePath(type);
}

/// Intended: what is refused is told to the log and to listeners, not to who writes.
template <AtlasType type>
void setTexture(AtlasTile& tile, const std::string& path, How how)
{
    if (!how.test(zarn::SetterFlag::Unseen))
        tile.setTexture(type, path);
}

void recordCompanion(AtlasTile& tile, AtlasType type, const std::vector<std::string>& before)
{
    const std::string& companion = before[static_cast<std::size_t>(type)];
    if (companion == AtlasTile::companionOf(before[0], type))
        return;
    Ozy::CommitChangesScope::makeUndo<zarn::SetProperty>(
        zarn::reflect(tile).findPropertyByName(AtlasTile::TypeNames[static_cast<std::size_t>(type)]), qelm::Variant(companion));
}

/// Takes the companions along. Undoing that does not bring back those that had been set apart: they are recorded, and
/// come after it.
void setAm(AtlasTile& tile, const std::string& path, How how)
{
    const std::vector<std::string> before = tile.textures();
    setTexture<AtlasType::AM>(tile, path, how);
    if (tile.textures() == before)
        return;
    recordCompanion(tile, AtlasType::GBMT, before);
    recordCompanion(tile, AtlasType::MAO, before);
}

Meta::DefaultValue deletion()
{
    return {[](const zarn::BoundProperty&) { return qelm::Variant(std::string()); }, "Delete"};
}

} // namespace

template <>
struct zarn::Reflection<AtlasTile>
{
    static constexpr const char* name = "AtlasTile";

    static Annotations annotations()
    {
        return {Meta::MultiSelection::ObjectType{[](const ReflectedObject&) { return "Tiles"; }}};
    }

    static void declare(StaticMetaObject<AtlasTile>::Builder& tile)
    {
        tile.with(StringJoinReduce::meta(",", false))
            .readOnly("_typeName", [] { return std::string("Texture"); })
            .readOnly("_typeIcon", [] { return std::string("resources/images/texture_asset/texture.svg"); })
            .readOnly("_objectName", &AtlasTile::objectName)
            .readOnly("_objectIcon", &AtlasTile::objectIcon);
        tile.with(Meta::Dependent{{"_objectName", "_objectIcon"}, 1}, Meta::View::ImagePath(),
                  Meta::DialogInitialPath{L"content/"}, deletion())
            .value("AM", &texture<AtlasType::AM>, &setAm, Meta::FilesFilter{"*_AM.png"},
                   Meta::Dependent{{"GBMT", "MAO"}, 1})
            .value("GBMT", &texture<AtlasType::GBMT>, &setTexture<AtlasType::GBMT>, Meta::FilesFilter{"*_GBMT.png"})
            .value("MAO", &texture<AtlasType::MAO>, &setTexture<AtlasType::MAO>, Meta::FilesFilter{"*_MAO.png"});
        tile.method("clear", &AtlasTile::clear, Meta::Label::Visible(false), Meta::Button::Text("Clear"),
                    Meta::Layout::FillWidth(), Meta::ToolTip("Clear all textures in tile"));
    }
};

namespace {

const zarn::ReflectAtLoad<AtlasTile> tileClass;

} // namespace
