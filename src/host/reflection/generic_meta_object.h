#pragma once

#include <host/base/host_export.h>
#include <host/reflection/meta_object.h>

namespace zarn {

/// The meta-object of generic objects: what properties there are, each object answers for itself.
class DATAMODELS_HOST_API GenericMetaObject final : public NotifyableMetaObject<1>
{
public:
    /// That of `GenericObject` itself.
    static GenericMetaObject& instance();

    /// That of a class derived from it.
    GenericMetaObject(const std::type_info& type, std::string name, std::vector<BaseClass> bases);
    ~GenericMetaObject() override;

    qelm::Variant createInstance() const override;
    Annotations annotations(const qelm::Variant& key) const override;
    std::shared_ptr<ObjectData> objectData(const ReflectedObject& object) const override;
    int indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const override;
    std::shared_ptr<MetaProperty> property(const ReflectedObject& object, std::size_t index,
                                           std::size_t* remaining) const override;
    int addProperty(const ReflectedObject& object, const qelm::Variant& key, const qelm::Variant& value) override;
    bool removeProperty(const ReflectedObject& object, std::size_t index) override;
    std::size_t propertyCount(const ReflectedObject& object) const override;
    MetaObject* mostDerived(void* object) const override;

private:
    void* downcast(void* object, const std::type_info& to) const override;

    Annotations m_annotations;
};

} // namespace zarn
