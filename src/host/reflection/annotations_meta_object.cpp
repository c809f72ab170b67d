#include <host/reflection/annotations_meta_object.h>

#include <host/reflection/bound_property.h>
#include <host/reflection/cast.h>
#include <host/reflection/meta_object_manager.h>

#include <iterator>

namespace zarn {
namespace {

[[maybe_unused]] const AnnotationsMetaObject& knownFromLoad = AnnotationsMetaObject::instance();

} // namespace

class AnnotationsMetaObject::Entry final : public MetaProperty
{
public:
    Entry(std::string name, std::size_t number)
        : MetaProperty(Kind::Value, qelm::Variant(std::move(name)), {}), m_number(number)
    {
    }

    bool isConst() const override { return true; }
    qelm::Variant get(const BoundProperty& property) const override
    {
        const Annotations* all = zarn::cast<Annotations>(property.object());
        Annotations::untyped_iterator found = all ? all->find(name()) : Annotations::untyped_iterator();
        for (std::size_t number = 0; found.isValid() && number < m_number; ++number)
            ++found;
        return found.isValid() ? *found : qelm::Variant();
    }

private:
    std::size_t m_number;
};

AnnotationsMetaObject::AnnotationsMetaObject() : NotifyableMetaObject<0>(typeid(Annotations), "zarn::Annotations", {})
{
    MetaObjectManager::instance().registerType(this);
}

AnnotationsMetaObject::~AnnotationsMetaObject()
{
    MetaObjectManager::instance().unregisterType(this);
}

AnnotationsMetaObject& AnnotationsMetaObject::instance()
{
    static AnnotationsMetaObject metaObject;
    return metaObject;
}

std::shared_ptr<MetaProperty> AnnotationsMetaObject::property(const ReflectedObject& object, std::size_t index,
                                                              std::size_t* remaining) const
{
    const std::size_t count = propertyCount(object);
    if (index >= count) {
        *remaining = index - count;
        return nullptr;
    }
    const Annotations& all = *zarn::cast<Annotations>(object);
    const std::string name = all.at(index).type()->name();
    std::size_t number = 0;
    for (std::size_t before = 0; before < index; ++before)
        number += all.at(before).type() == all.at(index).type();
    std::shared_ptr<MetaProperty>& entry = m_entries[{name, number}];
    if (!entry)
        entry = std::make_shared<Entry>(name, number);
    return entry;
}

std::size_t AnnotationsMetaObject::propertyCount(const ReflectedObject& object) const
{
    const Annotations* all = zarn::cast<Annotations>(object);
    return all ? all->size() : 0;
}

} // namespace zarn
