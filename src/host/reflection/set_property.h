#pragma once

#include <host/base/host_export.h>
#include <host/reflection/persistent_object.h>
#include <host/undo/command.h>
#include <host/variant/variant.h>

namespace zarn {

/// Sets a property to the value that it had, through `set`, so that views hear of it and the opposite is recorded.
class DATAMODELS_HOST_API SetProperty : public Ozy::utils::Command
{
public:
    SetProperty(const BoundProperty& property, qelm::Variant value);

    bool execute() override;

private:
    PersistentObject m_object;
    qelm::Variant m_key;
    qelm::Variant m_value;
};

} // namespace zarn
