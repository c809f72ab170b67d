#pragma once

#include <host/reflection/persistent_object.h>

#include <QMetaType>

#include <memory>
#include <vector>

namespace Ozy {
class ChangesController;
}

namespace zarn {
class BoundProperty;
}

/// What a row button asks about the selection of the panel that it stands in. The editor implements it, and owns it.
/// Thread: GUI only.
class IAssetSelection
{
public:
    virtual ~IAssetSelection() = default;

    /// The document whose history takes what is done with the selection; it may have gone.
    virtual std::weak_ptr<Ozy::ChangesController> changesController() = 0;
    /// In the order of selection. They find objects again that were destroyed and made anew by undo.
    virtual std::vector<zarn::PersistentObject> selectedObjects() = 0;
    /// Told ahead of a deletion, so that nothing selected is deleted: an implementation clears its selection.
    virtual void beforeDelete() = 0;
    virtual bool isSelected(const zarn::ReflectedObject& object) = 0;
    /// Told of each method, other than stateless ones, that a button is about to run.
    virtual void onMethodAboutToRun(const zarn::BoundProperty& method) = 0;
};

Q_DECLARE_METATYPE(IAssetSelection*)
