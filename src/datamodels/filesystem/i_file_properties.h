#pragma once

#include <datamodels/datamodels_export.h>
#include <host/reflection/object.h>
#include <host/reflection/static_meta_object.h>

namespace datamodels {

/// The base of what a host knows of a file beyond the file system. A class derived from it is reflected with
/// `Bases = zarn::BaseList<datamodels::IFileProperties>`.
class DATAMODELS_API IFileProperties : public zarn::Object
{
public:
    ~IFileProperties() override;
};

} // namespace datamodels

// One meta-object in the process, though plug-ins derive from the class.
extern template class DATAMODELS_API zarn::StaticMetaObject<datamodels::IFileProperties>;

template <>
struct zarn::Reflection<datamodels::IFileProperties>
{
    static constexpr const char* name = "datamodels::IFileProperties";
    static void declare(StaticMetaObject<datamodels::IFileProperties>::Builder&) {}
};
