#include <host/asset/item_asset_selection.h>

#include <host/reflection/bound_property.h>

ItemAssetSelection::ItemAssetSelection(QItemSelectionModel& selection, int objectRole,
                                       std::weak_ptr<Ozy::ChangesController> document)
    : m_selection(&selection), m_objectRole(objectRole), m_document(std::move(document))
{
}

ItemAssetSelection::~ItemAssetSelection() = default;

/// Shows the selected objects until the visitor is content with one.
template <class Visitor>
bool ItemAssetSelection::anySelected(Visitor visitor) const
{
    if (!m_selection)
        return false;
    for (const QModelIndex& index : m_selection->selectedIndexes()) {
        const auto object = index.data(m_objectRole).value<zarn::ReflectedObject>();
        if (object.isValid() && visitor(object))
            return true;
    }
    return false;
}

std::vector<zarn::PersistentObject> ItemAssetSelection::selectedObjects()
{
    std::vector<zarn::PersistentObject> objects;
    anySelected([&](const zarn::ReflectedObject& object) {
        objects.emplace_back(object);
        return false;
    });
    return objects;
}

void ItemAssetSelection::beforeDelete()
{
    if (m_selection)
        m_selection->clear();
}

bool ItemAssetSelection::isSelected(const zarn::ReflectedObject& object)
{
    return anySelected([&](const zarn::ReflectedObject& selected) { return selected == object; });
}

void ItemAssetSelection::onMethodAboutToRun(const zarn::BoundProperty& method)
{
    if (m_listener)
        m_listener(method);
}
