#pragma once

#include <host/base/host_export.h>
#include <host/reflection/meta_object.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

/// What the meta-objects of all sequential collections have in common: the elements are properties without a name of their
/// own, with their index as key (a `size_t`) and its decimal text as name. Look-up takes either.
///
/// An element that comes to stand at another index takes its listeners along, and they are told with the notify flags 3,
/// each by the property that it was before.
class DATAMODELS_HOST_API CollectionMetaObject : public NotifyableMetaObject<1>
{
public:
    Annotations annotations(const qelm::Variant& key) const override;
    int indexOfProperty(const ReflectedObject& object, const qelm::Variant& key) const override;
    std::shared_ptr<MetaProperty> property(const ReflectedObject& object, std::size_t index,
                                           std::size_t* remaining) const override;

    /// Inserts a value at an index, or, with a void key or one behind the end, appends it. A void value makes a default
    /// element. -1, with nothing told or recorded, for a key or a value of a wrong type.
    int addProperty(const ReflectedObject& object, const qelm::Variant& key, const qelm::Variant& value) override;
    /// False, with nothing told or recorded, behind the end.
    bool removeProperty(const ReflectedObject& object, std::size_t index) override;

    void propertyAboutToBeAdded(const ReflectedObject& object, std::size_t first, std::size_t count) override;
    void propertyAboutToBeRemoved(const ReflectedObject& object, std::size_t first, std::size_t count) override;

    std::size_t propertyCount(const ReflectedObject& object) const override;

protected:
    CollectionMetaObject(const std::type_info& type, const std::type_info& element, const std::string& baseName,
                         const Annotations& annotations);
    ~CollectionMetaObject() override;

private:
    class Element;

    /// None where the object holds no such collection.
    virtual std::optional<std::size_t> elementCount(const ReflectedObject& object) const = 0;
    virtual qelm::Variant element(const ReflectedObject& object, std::size_t index) const = 0;
    /// A value as an element, a default one for void; void if there is no conversion.
    virtual qelm::Variant asElement(const qelm::Variant& value) const = 0;
    virtual void setElement(const ReflectedObject& object, std::size_t index, const qelm::Variant& value) const = 0;
    virtual void insertElement(const ReflectedObject& object, std::size_t index, const qelm::Variant& value) const = 0;
    virtual void eraseElement(const ReflectedObject& object, std::size_t index) const = 0;
    virtual void recordRemoval(const ReflectedObject& object, std::size_t index) const = 0;

    const std::shared_ptr<MetaProperty>& elementProperty(std::size_t index) const;
    void renumber(const ReflectedObject& object, std::size_t first, std::size_t end, std::ptrdiff_t distance) const;

    Annotations m_annotations;
    Annotations m_elementAnnotations;
    mutable std::vector<std::shared_ptr<MetaProperty>> m_elementProperties;
};

} // namespace zarn
