#pragma once

#include <host/asset/asset_selection.h>
#include <host/base/host_export.h>

#include <QItemSelectionModel>
#include <QPointer>

#include <functional>

/// What is selected in an asset panel, read from the panel's item selection at each question, so that both are always in
/// step. Rows give their object by one role, as a `zarn::ReflectedObject`; rows without one are left out.
///
/// A deletion clears the item selection first. Owns neither the selection model nor the document; after the death of the
/// former nothing is selected. Cost: each question goes through the selected rows. Thread: GUI only.
class DATAMODELS_HOST_API ItemAssetSelection : public IAssetSelection
{
public:
    ItemAssetSelection(QItemSelectionModel& selection, int objectRole, std::weak_ptr<Ozy::ChangesController> document);
    ~ItemAssetSelection() override;

    std::weak_ptr<Ozy::ChangesController> changesController() override { return m_document; }
    std::vector<zarn::PersistentObject> selectedObjects() override;
    void beforeDelete() override;
    bool isSelected(const zarn::ReflectedObject& object) override;
    void onMethodAboutToRun(const zarn::BoundProperty& method) override;

    /// Is told of the methods that buttons run; empty at the start.
    void setMethodListener(std::function<void(const zarn::BoundProperty&)> listener) { m_listener = std::move(listener); }

private:
    template <class Visitor>
    bool anySelected(Visitor visitor) const;

    QPointer<QItemSelectionModel> m_selection;
    int m_objectRole;
    std::weak_ptr<Ozy::ChangesController> m_document;
    std::function<void(const zarn::BoundProperty&)> m_listener;
};
