#pragma once

#include <host/base/host_export.h>
#include <host/reflection/annotations.h>
#include <host/reflection/object.h>
#include <host/variant/variant.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace zarn {

class BoundProperty;
class MetaProperty;
class ReflectedObject;

/// An object whose properties are given to it and taken away at run time, through `addProperty` and `removeProperty` of a
/// handle on it, under keys of any type.
///
/// A property is found by its key, or by its name, which is the key's text. Its value keeps the type that it was given
/// with, but for a void one, which takes the type of the first value that it is set to. A key that is void or taken is
/// refused. Adding and removing are undone as in a collection: a removed property comes back in its place, and handles on
/// it are valid again. A copy has the same properties and no listeners.
class DATAMODELS_HOST_API GenericObject : public Object
{
public:
    /// What is left out of the undo history.
    enum class VolatilityType
    {
        Persistent, ///< nothing
        Structural, ///< which properties there are
        Volatile,   ///< that and their values: the object is stateless
    };

    GenericObject() = default;
    GenericObject(const GenericObject& other);
    GenericObject& operator=(const GenericObject& other);
    ~GenericObject() override;

    /// Takes all properties away, as one reset.
    void clear();

    VolatilityType volatility() const { return m_volatility; }
    void setVolatility(VolatilityType volatility) { m_volatility = volatility; }

    /// What the class is to say of itself, for this object alone; none at first.
    const Annotations& annotations() const { return m_annotations; }
    void setAnnotations(const Annotations& annotations) { m_annotations = annotations; }

    std::size_t propertyCount() const { return m_properties.size(); }
    const std::shared_ptr<MetaProperty>& propertyAt(std::size_t index) const { return m_properties[index]; }
    std::optional<std::size_t> indexOf(const qelm::Variant& key) const;

protected:
    using Properties = std::vector<std::shared_ptr<MetaProperty>>;

    /// Puts other properties in the place of all, as one reset.
    void resetProperties(Properties properties);
    void removeFromProperties(std::size_t index);

private:
    friend class GenericMetaObject;
    class Insert;
    class Remove;
    class Restore;

    /// Runs inside of `clear`.
    virtual void cleared() {}
    /// Whether properties can be added and removed through the handle.
    virtual bool isEditable() const { return true; }

    bool recordsStructure() const { return m_volatility == VolatilityType::Persistent; }
    int insert(const std::shared_ptr<MetaProperty>& property, std::size_t index);
    bool remove(std::size_t index);
    void exchange(Properties& properties);
    void forget(const MetaProperty& property);

    Properties m_properties;
    Annotations m_annotations;
    VolatilityType m_volatility = VolatilityType::Persistent;
};

} // namespace zarn
