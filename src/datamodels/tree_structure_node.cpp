#include <datamodels/tree_structure_node.h>

#include <host/reflection/cast.h>
#include <host/reflection/sequential_collection_meta_object.h>
#include <host/reflection/static_meta_object.h>

using Ozy::TreeStructureAdapter;
using Node = TreeStructureAdapter::NodeInternal;

namespace {

using zarn::meta_property::VisibilityFlag;
using Visibility = ryk::Flags<VisibilityFlag>;

Meta::IconButton button(const char* icon, std::size_t position)
{
    Meta::IconButton button;
    button.position = position;
    button.firstIcon = icon;
    button.secondIcon = icon;
    button.colour = 0xd4d4d4;
    return button;
}

/// What the node says of itself to others, not what it knows.
bool isSet(const zarn::BoundProperty& property, const char* flag)
{
    return property.object().findPropertyByName(flag).get().value<bool>();
}

} // namespace

template <>
struct zarn::Reflection<Node>
{
    static constexpr const char* name = "Ozy::TreeStructureAdapter::NodeInternal";
    static void declare(StaticMetaObject<Node>::Builder& node)
    {
        const Visibility hidden = meta_property::hidden;
        const Visibility inOutliner = VisibilityFlag::Outliner;
        const Visibility everywhere = meta_property::fullyVisible;
        node.readOnly("_objectName", &Node::name)
            .readOnly("_objectIcon", &Node::icon)
            .readOnly("Children", [](Node& self) { return &self.children(); })
            .readOnly("wrapped", &Node::wrapped, Meta::Visible([=](const BoundProperty& property) {
                          return isSet(property, "_isRoot") ? hidden : everywhere;
                      }))
            .readOnly("_isProducing", &Node::isProducing)
            .readOnly("_isRoot", &Node::isRoot)
            .method("Add", &Node::requestAdd, button("model_asset/add", 0), Meta::Visible([=](const BoundProperty& property) {
                        return isSet(property, "_isProducing") ? inOutliner : hidden;
                    }))
            .method("Remove me", &Node::requestRemoval, button("model_asset/delete", 1),
                    Meta::Visible([=](const BoundProperty& property) {
                        return isSet(property, "_isRoot") ? hidden : inOutliner;
                    }));
    }
};

template <>
struct zarn::Reflection<TreeStructureAdapter>
{
    static constexpr const char* name = "Ozy::TreeStructureAdapter";
    static void declare(StaticMetaObject<TreeStructureAdapter>::Builder& adapter)
    {
        adapter.readOnly("Root", &TreeStructureAdapter::getRoot, Meta::SceneItem(true), Meta::Expanded(true));
    }
};

namespace {

const zarn::ReflectAtLoad<Node> nodeClass;
const zarn::ReflectAtLoad<TreeStructureAdapter> adapterClass;
const zarn::SequentialCollectionMetaObject<Node::Children, 0> childrenClass(
    "TreeStructureAdapterNodeChildren",
    {Meta::Stateless([](const zarn::ReflectedObject& children) {
         return static_cast<int>(zarn::cast<Node::Children>(children)->isStateless());
     }),
     Meta::Children{"*", {Meta::SceneItem(true)}}});

} // namespace

Node::NodeInternal(zarn::ReflectedObject wrapped, NodeInternal* parent, TreeStructureAdapter& adapter, bool stateless,
                   DataDescription description)
    : m_wrapped(std::move(wrapped))
    , m_children(stateless)
    , m_parent(parent)
    , m_adapter(adapter)
    , m_description(std::move(description))
{
}

Node::~NodeInternal() = default;
