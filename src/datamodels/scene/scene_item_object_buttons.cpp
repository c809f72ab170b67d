#include <datamodels/scene/scene_item_object.h>

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene/scene_item_buttons_model.h>
#include <datamodels/scene/user_button_handler.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>
#include <host/asset/asset_selection.h>
#include <host/reflection/meta.h>

#include <tuple>
#include <utility>

// The buttons of a row: those that properties ask for, and "Add item" and "Delete item" of collections.

namespace {

constexpr int clearsSelection = 3;

Meta::IconButton button(const char* icon, std::size_t position)
{
    Meta::IconButton button;
    button.position = position;
    button.firstIcon = icon;
    button.secondIcon = icon;
    button.colour = 0xD4D4D4;
    return button;
}

} // namespace

/// Whether an annotation is on the object, on its property, or for a root node on the property of its parent.
template <class Annotation>
bool SceneItem::Object::isSaid() const
{
    return m_object.annotations().contain<Annotation>()
        || (property().isValid() && property().annotations().contain<Annotation>())
        || (m_parent && !isInSameItem(m_parent) && m_parent->property().annotations().contain<Annotation>());
}

/// Null for what is none.
const SceneItem::Object::Collection* SceneItem::Object::collection()
{
    if (std::exchange(m_knowsCollection, true) || !m_object.isValid())
        return m_collection.get();

    auto size = m_object.annotations().find<Meta::CollectionSize>();
    if (!size.isValid() && property().isValid())
        size = property().annotations().find<Meta::CollectionSize>();
    else if (!size.isValid() && m_parent && !isInSameItem(m_parent))
        size = m_parent->property().annotations().find<Meta::CollectionSize>();
    if (!size.isValid())
        return nullptr;

    Collection found;
    std::tie(found.minSize, found.maxSize) = size->value<Meta::CollectionSize>().bounds(zarn::ReflectedObject(property()));
    found.canInsert = isSaid<Meta::CollectionInsert>();
    found.canRemove = isSaid<Meta::CollectionRemove>();
    m_collection = std::make_unique<const Collection>(found);
    return m_collection.get();
}

/// What a button of the node stands for.
const zarn::BoundProperty& SceneItem::Object::buttonProperty() const
{
    return property().isValid() || !m_parent ? property() : m_parent->property();
}

void SceneItem::Object::addIconButton()
{
    // Found by way of the nodes: the item does not have its root node yet while that is being made.
    const Object* root = this;
    while (root->parentInItem())
        root = root->m_parent;
    m_iconButton = m_sceneItem.buttons().addButton(property(), fullPath(),
                                                   UserButtonHandler{root->m_object, fullPath(), &m_sceneItem.m_model});
}

void SceneItem::Object::updateAddButton()
{
    const bool isWanted = collection() && collection()->canInsert && collection()->maxSize > m_children.size();
    if (isWanted && !m_addButton) {
        m_addButton = m_sceneItem.buttons().addButton(
            buttonProperty(), fullPath(), [this](IAssetSelection*, bool) { addElement(); }, button("model_asset/add", 0),
            Meta::ToolTip("Add item"));
    } else if (!isWanted) {
        removeButton(m_addButton);
    }
    if (!collection() || !collection()->canRemove)
        return; // the elements neither have the other button nor ever will
    for (std::size_t place = 0; place < m_children.size(); ++place) {
        if (m_children[place] && m_children[place]->m_childRootObject)
            m_children[place]->m_childRootObject->updateDeleteButton();
    }
}

void SceneItem::Object::updateDeleteButton()
{
    if (!m_parent)
        return;
    Object* const owner = isInSameItem(m_parent) ? m_parent : m_parent->m_parent;
    const Collection* const bounds = owner ? owner->collection() : nullptr;
    const bool isWanted = bounds && bounds->canRemove && bounds->minSize < owner->m_children.size();
    if (isWanted && !m_deleteButton) {
        m_deleteButton = m_sceneItem.buttons().addButton(
            buttonProperty(), fullPath(), [this](IAssetSelection* selection, bool) { deleteElements(selection); },
            button("model_asset/delete", bounds->canInsert ? 1 : 0), Meta::ToolTip("Delete item"));
        if (m_sceneItem.m_model.m_suppressCounter == 0)
            m_sceneItem.m_model.onItemDataChanged(m_sceneItem, m_sceneItem, {SceneRoles::RowButtonsModel});
    } else if (!isWanted) {
        removeButton(m_deleteButton);
    }
}

void SceneItem::Object::addElement()
{
    if (!collection())
        return;
    const zarn::ReflectedObject object = m_object; // the new element may bring others in its place
    object.addProperty(qelm::Variant(std::uint64_t(m_children.size())), qelm::Variant());
}

/// Deletes the element whose row bears the button, or all selected elements if it is one of several.
/// Afterwards this node may be gone.
void SceneItem::Object::deleteElements(IAssetSelection* selection)
{
    const Object* const element = m_parent;
    Object* const owner = element ? element->m_parent : nullptr;
    if (!owner || !owner->collection() || !element->m_childRootObject)
        return;

    const zarn::ReflectedObject container = owner->m_object;
    const zarn::ReflectedObject object = element->m_object;
    const std::string name = element->property().name();
    const auto said = container.reference().annotations().find<Meta::Selection>();
    if (selection && said.isValid() && said->value<Meta::Selection>().first == clearsSelection)
        selection->beforeDelete();

    const bool isOneOfSeveral = selection && selection->isSelected(object)
        && (!object.isValid() || selection->selectedObjects().size() != 1);
    if (isOneOfSeveral)
        element->m_parent->deleteSelected(*selection);
    else
        container.removeProperty(qelm::Variant(name));
}

/// Deletes the elements of this collection that are selected, the last one first so that rows keep their numbers, until
/// the collection is as small as it may be.
void SceneItem::Object::deleteSelected(IAssetSelection& selection)
{
    std::vector<bool> isMarked(m_children.size());
    Object* target = nullptr;
    for (const zarn::PersistentObject& selected : selection.selectedObjects()) {
        const SceneItem* const item = m_sceneItem.findSceneItemByItsReflectedObject(selected.object());
        if (!item || item->m_parent != &m_sceneItem)
            continue;
        const int row = item->selfIndexInParent();
        if (row < 0 || static_cast<std::size_t>(row) >= isMarked.size())
            continue;
        isMarked[static_cast<std::size_t>(row)] = true;
        target = item->m_collectionObject->m_parent;
    }
    if (!target)
        return;
    const zarn::ReflectedObject container = target->m_object;
    for (std::size_t row = isMarked.size(); row-- > 0;) {
        if (!isMarked[row])
            continue;
        if (collection()->minSize >= m_children.size())
            return;
        container.removePropertyAt(row);
    }
}

void SceneItem::Object::removeButton(SceneItemButton*& button)
{
    if (SceneItemButton* const removed = std::exchange(button, nullptr))
        m_sceneItem.m_buttonsModel->removeButton(*removed);
}
