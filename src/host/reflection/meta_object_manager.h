#pragma once

#include <host/base/host_export.h>

#include <string_view>
#include <typeindex>
#include <unordered_map>

namespace zarn {

class MetaObject;

/// The classes with reflection, by type. A class registers itself while its meta-object is made, and leaves with it.
class DATAMODELS_HOST_API MetaObjectManager
{
public:
    /// Made at the first need, safely from any thread; all else belongs to the GUI thread.
    static MetaObjectManager& instance();

    void registerType(MetaObject* metaObject);
    void unregisterType(MetaObject* metaObject);
    /// Null for a type without reflection.
    MetaObject* findType(const std::type_info& type) const;
    MetaObject* findType(std::string_view name) const;

private:
    MetaObjectManager() = default;

    std::unordered_map<std::type_index, MetaObject*> m_types;
};

} // namespace zarn
