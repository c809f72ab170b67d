#pragma once

#include <host/reflection/meta_object.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace zarn {

/// Shows a set of annotations as an object: each is a constant under the name of its struct, in their order. Of several of
/// one name the first is found by it.
///
/// Whoever makes a handle around a `std::shared_ptr<Annotations>` finds it by the type.
class AnnotationsMetaObject final : public NotifyableMetaObject<0>
{
public:
    static AnnotationsMetaObject& instance();
    ~AnnotationsMetaObject() override;

    std::shared_ptr<MetaProperty> property(const ReflectedObject& object, std::size_t index,
                                           std::size_t* remaining) const override;
    std::size_t propertyCount(const ReflectedObject& object) const override;

private:
    class Entry;

    AnnotationsMetaObject();

    // By the name, and the number among those of that name. They are shared by all sets.
    mutable std::map<std::pair<std::string, std::size_t>, std::shared_ptr<MetaProperty>> m_entries;
};

} // namespace zarn
