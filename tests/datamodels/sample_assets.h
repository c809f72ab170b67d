#pragma once

#include "../host/reflection/sample_objects.h"

#include <datamodels/asset_tree_data_model.h>
#include <host/signals/signal.h>

#include <memory>

namespace sample {

inline const zarn::ReflectAtLoad<Engine> engineClass;
inline const zarn::ReflectAtLoad<Vehicle> vehicleClass;
inline const zarn::ReflectAtLoad<Boat> boatClass;

/// A list of objects that tells double clicks.
class AssetTree : public Ozy::AssetTreeDataModel
{
public:
    void add(const zarn::ReflectedObject& object, const std::string& name, const zarn::ReflectedObject& parent = {})
    {
        addRow(object, std::make_unique<DataRolesDescription>(DataRolesDescription{name, name + ".png"}), parent);
    }

    ryk::Connection connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const override
    {
        return m_doubleClicked.connect(std::move(callback));
    }
    void onDoubleClicked(const QModelIndex& index) override { m_doubleClicked(index); }
    void updateHoverRole(const zarn::ReflectedObject& object, bool hovered) override
    {
        m_hovered = hovered ? object : zarn::ReflectedObject();
    }
    const zarn::ReflectedObject& hovered() const { return m_hovered; }

private:
    mutable ryk::Signal<void(QModelIndex)> m_doubleClicked;
    zarn::ReflectedObject m_hovered;
};

} // namespace sample
