#pragma once

#include <datamodels/scene/gap_vector.h>
#include <datamodels/scene/scene_item.h>
#include <host/reflection/object_observer.h>

#include <cstddef>
#include <cstdint>
#include <string>

class IAssetSelection;
class SceneItemButton;

/// A node of the walk that turns an object into rows: it stands for the item's own object, or for one property of an
/// object on the way down. A node either makes one row, whose own nodes go on from there, or has nodes below it, or
/// nothing. It also owns the buttons that its property asks for, and follows its object.
///
/// A row number is a sum up the path: a node knows how many rows it makes with all below it, and how many its earlier
/// siblings make. The latter is counted when it is asked for, from the first sibling behind which something has changed,
/// so that work that goes through all elements of a collection counts each of them once.
///
/// A property that can neither hold an object nor make a row or a button has no node.
///
/// Owned by its parent, a root node by its item. Thread: GUI only.
class SceneItem::Object : private zarn::ObjectObserver
{
public:
    /// A root node, which walks at once. `parent` is the node in the parent item that made the item, or null.
    Object(SceneItem& item, zarn::ReflectedObject object, Object* parent);
    /// A node over a property; `init` walks, after the node has been put in its place.
    Object(SceneItem& item, const zarn::BoundProperty& property, Object* parent, std::size_t place);
    ~Object();
    Q_DISABLE_COPY_MOVE(Object)

    const zarn::ReflectedObject& object() const { return m_object; }
    /// Invalid for a root node.
    const zarn::BoundProperty& property() const;
    /// How many rows of the item the node makes, with all below it.
    std::size_t sceneItemCount() const { return m_sceneItemCount; }
    /// The row of the item that the node makes, or that the first one below it would make.
    std::size_t sceneRow() const;

    void init();
    /// Leaves the node empty, to be walked again or destroyed.
    void fini();
    void insertChildren(std::size_t index, std::size_t count);
    void removeChildren(std::size_t index, std::size_t count);
    /// Makes the nodes from `from` on anew whose objects have come to stand under other keys.
    void fixChildrenReferences(std::size_t from);
    void addSceneItems(std::ptrdiff_t delta);
    /// Fails an assertion for what is not a child.
    std::size_t indexOf(const Object& child) const;

private:
    class Suppression;

    /// Bounds of a collection, and what may be done to it in the outliner.
    struct Collection
    {
        std::size_t minSize = SIZE_MAX;
        std::size_t maxSize = 0;
        bool canInsert = false;
        bool canRemove = false;
    };

    bool isInSameItem(const Object* other) const { return other && &other->m_sceneItem == &m_sceneItem; }
    Object* parentInItem() const { return isInSameItem(m_parent) ? m_parent : nullptr; }
    bool contains(const zarn::ReflectedObject& object) const;
    bool isWalkable() const;
    std::unique_ptr<Object> makeChild(std::size_t place);
    void renumberChildren(std::size_t from);
    void forgetRowsBefore(std::size_t place);
    std::size_t rowsBefore() const;
    void makeRow();
    void dropRow();
    void walk(const zarn::Annotations& annotations);
    Object* childOver(const zarn::MetaProperty& property, const qelm::Variant& key) const;
    void onPropertyChanged(ryk::Flags<zarn::SetterFlag> setterFlags);

    void propertyChanged(const zarn::BoundProperty& property, ryk::Flags<zarn::SetterFlag> setterFlags,
                         ryk::Flags<zarn::NotifyFlag> notifyFlags) override;
    void propertyAdded(std::size_t index, std::size_t count) override;
    void propertyAboutToBeRemoved(std::size_t index, std::size_t count) override;
    void propertyRemoved(std::size_t index, std::size_t count) override;
    void propertiesAboutToBeReset() override;
    void propertiesReset() override;
    std::string fullPath() const;

    const Collection* collection();
    template <class Annotation>
    bool isSaid() const;
    const zarn::BoundProperty& buttonProperty() const;
    void addIconButton();
    void updateAddButton();
    void updateDeleteButton();
    void addElement();
    void deleteElements(IAssetSelection* selection);
    void deleteSelected(IAssetSelection& selection);
    void removeButton(SceneItemButton*& button);

    SceneItem& m_sceneItem;
    zarn::ReflectedObject m_object;
    Object* m_parent;
    int m_level;
    const bool m_isRoot;
    bool m_isSceneItem = false;
    bool m_followsStructure = false; // from the end of the walk on
    GapVector<std::unique_ptr<Object>> m_children; // null for properties without a node
    Object* m_childRootObject = nullptr;
    SceneItemButton* m_iconButton = nullptr;
    SceneItemButton* m_deleteButton = nullptr;
    SceneItemButton* m_addButton = nullptr;
    std::size_t m_sceneItemCount = 0;
    mutable std::size_t m_place = 0;           // among the siblings, when last asked
    mutable std::size_t m_rowsBefore = 0;      // true for the counted ones of the siblings
    mutable std::size_t m_countedChildren = 0; // so many, from the first one on
    mutable std::size_t m_countedRows = 0;     // which they make
    // Intended: found once, and kept also when the value is another one.
    std::unique_ptr<const Collection> m_collection;
    bool m_knowsCollection = false;
};
