#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/scene_item_model.h>
#include <host/reflection/object.h>
#include <host/reflection/reflected_object.h>
#include <host/signals/signal.h>

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Ozy {

/// Shows a flat set of objects as an outliner tree with the buttons "Add" and "Remove me", for plug-ins that own objects
/// and do not want to write a model. The plug-in names the parent of each object and gets a `SceneItemModel` over wrappers
/// of them. A pressed button comes back as a request with the row's object, an invalid one for the root; the adapter
/// itself changes nothing then.
///
/// A row is told as one insertion, and a removed one as one removal with all below it; earlier siblings make later ones be
/// rebuilt. Adding leaves nothing to undo. Removing does, unless the adapter is stateless: undone, the row comes back
/// without being the object's wrapper.
///
/// Owns the wrappers, also those of removed rows, and the model; not the objects. Cost: finding a wrapper is one look-up.
/// Bad input: a row below an unknown parent is left out, with a message; the removal of an unknown object fails an
/// assertion. A second row for an object takes the place of the first as its wrapper. Thread: GUI only.
class DATAMODELS_API TreeStructureAdapter : public zarn::Object
{
public:
    class NodeInternal;

    /// What a row shows, as UTF-8.
    struct DataDescription
    {
        std::string name;
        std::string icon;
        bool producing = false; ///< whether the row offers "Add"
    };

    /// The root always offers "Add". With `stateless` the removal of rows is not recorded.
    TreeStructureAdapter(std::string rootName, bool stateless);
    ~TreeStructureAdapter() override;
    Q_DISABLE_COPY_MOVE(TreeStructureAdapter)

    /// Behind the other rows of `parent`; of the root for an invalid one.
    void addRow(const zarn::ReflectedObject& object, const DataDescription& description,
                const zarn::ReflectedObject& parent);
    /// With all rows below it.
    void removeRow(const zarn::ReflectedObject& object);

    /// The wrapper by which the model knows an object; invalid for one without a row.
    zarn::ReflectedObject getWrapper(const zarn::ReflectedObject& object) const;
    NodeInternal* getRoot() { return m_root; }
    SceneItemModel& getModel() { return *m_model; }

    ryk::Connection connectObjectAddRequest(const std::function<void(const zarn::ReflectedObject&)>& slot) const;
    ryk::Connection connectObjectRemoveRequest(const std::function<void(const zarn::ReflectedObject&)>& slot) const;
    void notifyAddRequest(const zarn::ReflectedObject& object);
    void notifyRemoveRequest(const zarn::ReflectedObject& object);

private:
    NodeInternal* find(const zarn::ReflectedObject& object) const;
    void store(const zarn::ReflectedObject& object, std::unique_ptr<NodeInternal> node);
    void removeNodeImplementation(NodeInternal& node, bool partOfParent);
    void forget(const NodeInternal& node);

    std::vector<std::unique_ptr<NodeInternal>> m_removed; // undo brings their rows back
    NodeInternal* m_root = nullptr;
    std::unordered_map<zarn::ReflectedObject, std::unique_ptr<NodeInternal>> m_objectsToNodes;
    std::unique_ptr<SceneItemModel> m_model; // goes before the nodes
    mutable ryk::Signal<void(const zarn::ReflectedObject&)> m_addRequest;
    mutable ryk::Signal<void(const zarn::ReflectedObject&)> m_removeRequest;
    bool m_stateless;
};

} // namespace Ozy
