#pragma once

#include <host/base/host_export.h>
#include <host/reflection/object.h>
#include <host/variant/variant.h>

#include <QtGlobal>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

class MetaProperty;

/// An object whose properties are given to it and taken away at run time, by `addProperty` and `removeProperty` of a handle
/// on it, under keys of any type.
///
/// A property is found by its key, or by its name, which is the text of the key. It keeps the type of the value that it was
/// added with. A void key or value is refused, and so is a key that is taken. Adding and removing are undone as in a
/// collection: a property comes back in its place with its value, and handles on it are valid again.
/// Cost: finding a property is linear.
class DATAMODELS_HOST_API GenericObject : public Object
{
public:
    /// What the undo history leaves out.
    enum class VolatilityType
    {
        Persistent, ///< nothing
        Structural, ///< which properties there are
        Volatile,   ///< that, and their values: the object is stateless
    };

    GenericObject() = default;
    ~GenericObject() override;
    Q_DISABLE_COPY_MOVE(GenericObject)

    /// Takes all properties away, as one reset.
    void clear();

    VolatilityType volatility() const { return m_volatility; }
    void setVolatility(VolatilityType volatility) { m_volatility = volatility; }

    /// The name of the object's type in selections.
    virtual std::string typeName() const { return "GenericObject"; }

protected:
    using Properties = std::vector<std::shared_ptr<MetaProperty>>;

    const Properties& properties() const { return m_properties; }
    /// Puts other properties in the place of all, as one reset.
    void resetProperties(Properties properties);
    int insertProperty(const std::shared_ptr<MetaProperty>& property, std::size_t index);
    bool removeProperty(std::size_t index);

private:
    friend class GenericMetaObject;
    class Insert;
    class Restore;

    /// Runs at the end of `clear`.
    virtual void cleared() {}
    /// Whether others may add and remove properties, which is what undo is for.
    virtual bool isOpen() const { return true; }
    bool isRecorded() const { return isOpen() && m_volatility == VolatilityType::Persistent; }

    std::optional<std::size_t> indexOf(const qelm::Variant& key) const;

    Properties m_properties;
    VolatilityType m_volatility = VolatilityType::Persistent;
};

} // namespace zarn
