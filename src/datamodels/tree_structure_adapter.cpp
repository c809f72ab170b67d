#include <datamodels/tree_structure_adapter.h>

#include <datamodels/tree_structure_node.h>
#include <host/base/debug.h>
#include <host/reflection/notifiers.h>
#include <host/reflection/static_meta_object.h>

#include <algorithm>

namespace Ozy {

TreeStructureAdapter::TreeStructureAdapter(std::string rootName, bool stateless) : m_stateless(stateless)
{
    auto root = std::make_unique<NodeInternal>(zarn::ReflectedObject(), nullptr, *this, stateless,
                                               DataDescription{std::move(rootName), {}, true});
    m_root = root.get();
    m_objectsToNodes.emplace(zarn::ReflectedObject(), std::move(root));
    m_model = std::make_unique<SceneItemModel>(zarn::reflect(*this));
}

TreeStructureAdapter::~TreeStructureAdapter() = default;

void TreeStructureAdapter::addRow(const zarn::ReflectedObject& object, const DataDescription& description,
                                  const zarn::ReflectedObject& parent)
{
    NodeInternal* const parentNode = find(parent);
    if (!parentNode) {
        DebugMessageHelper(Priority::refusal, "datamodels")
            .message("TreeStructureAdapter: \"%s\" has an unknown parent and is left out\n", description.name.c_str());
        return;
    }
    auto node = std::make_unique<NodeInternal>(object, parentNode, *this, m_stateless, description);
    std::vector<NodeInternal*>& siblings = parentNode->children().elements();
    const zarn::PropertiesAddNotifier notifier(zarn::reflect(parentNode->children()), siblings.size(), 1);
    siblings.push_back(node.get());
    store(object, std::move(node));
}

void TreeStructureAdapter::removeRow(const zarn::ReflectedObject& object)
{
    const auto it = object.isValid() ? m_objectsToNodes.find(object) : m_objectsToNodes.end();
    if (OZY_ASSERT(it != m_objectsToNodes.end() && "Non existent node remove attempt"))
        removeNodeImplementation(*it->second, false);
}

/// Removes what is below first. Only the topmost node is taken out of its parent, which tells the model.
void TreeStructureAdapter::removeNodeImplementation(NodeInternal& node, bool partOfParent)
{
    const std::vector<NodeInternal*> children = node.children().elements();
    for (NodeInternal* child : children)
        removeNodeImplementation(*child, true);

    forget(node);
    if (partOfParent)
        return;
    const std::vector<NodeInternal*>& parentChildren = node.parent()->children().elements();
    const auto iteratorInParent = std::find(parentChildren.begin(), parentChildren.end(), &node);
    if (OZY_ASSERT(iteratorInParent != parentChildren.end())) {
        const auto position = static_cast<std::size_t>(iteratorInParent - parentChildren.begin());
        zarn::reflect(node.parent()->children()).removePropertyAt(position);
    }
}

/// Keeps the node, of which the collection still tells and which undo brings back, but not as a wrapper.
void TreeStructureAdapter::forget(const NodeInternal& node)
{
    // An object that has died is not found by itself any more.
    auto it = m_objectsToNodes.find(node.wrapped());
    if (it == m_objectsToNodes.end() || it->second.get() != &node) {
        it = std::find_if(m_objectsToNodes.begin(), m_objectsToNodes.end(),
                          [&](const auto& entry) { return entry.second.get() == &node; });
    }
    if (it == m_objectsToNodes.end())
        return; // another row has become the wrapper
    m_removed.push_back(std::move(it->second));
    m_objectsToNodes.erase(it);
}

zarn::ReflectedObject TreeStructureAdapter::getWrapper(const zarn::ReflectedObject& object) const
{
    NodeInternal* const node = object.isValid() ? find(object) : nullptr;
    return node ? zarn::reflect(*node) : zarn::ReflectedObject();
}

ryk::Connection
TreeStructureAdapter::connectObjectAddRequest(const std::function<void(const zarn::ReflectedObject&)>& slot) const
{
    return m_addRequest.connect(slot);
}

ryk::Connection
TreeStructureAdapter::connectObjectRemoveRequest(const std::function<void(const zarn::ReflectedObject&)>& slot) const
{
    return m_removeRequest.connect(slot);
}

void TreeStructureAdapter::notifyAddRequest(const zarn::ReflectedObject& object)
{
    m_addRequest(object);
}

void TreeStructureAdapter::notifyRemoveRequest(const zarn::ReflectedObject& object)
{
    m_removeRequest(object);
}

TreeStructureAdapter::NodeInternal* TreeStructureAdapter::find(const zarn::ReflectedObject& object) const
{
    const auto found = m_objectsToNodes.find(object);
    return found != m_objectsToNodes.end() ? found->second.get() : nullptr;
}

void TreeStructureAdapter::store(const zarn::ReflectedObject& object, std::unique_ptr<NodeInternal> node)
{
    std::unique_ptr<NodeInternal>& place = m_objectsToNodes[object];
    if (place)
        m_removed.push_back(std::move(place)); // its row is still there
    place = std::move(node);
}

} // namespace Ozy
