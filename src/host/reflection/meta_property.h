#pragma once

#include <host/base/host_export.h>
#include <host/reflection/annotations.h>
#include <host/reflection/reflection_flags.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace zarn {

class BoundProperty;
class MetaObject;

/// What a wrong number of arguments throws.
class DATAMODELS_HOST_API GenericFunctionError : public std::runtime_error
{
public:
    GenericFunctionError(std::size_t accepted, std::size_t passed);
};

/// The description of one property of a class: its key and name, its annotations, and how it is read, written or called.
/// One for all objects of the class.
class DATAMODELS_HOST_API MetaProperty : public std::enable_shared_from_this<MetaProperty>
{
public:
    enum class Kind
    {
        Value,
        Method,
    };

    virtual ~MetaProperty();
    MetaProperty& operator=(const MetaProperty&) = delete;

    /// Runs once, before the property is added to its class: looks up what is asked of the annotations often.
    virtual void initialize();

    const qelm::Variant& key() const { return m_key; }
    const std::string& name() const { return m_name; }
    const Annotations& annotations() const { return m_annotations; }
    Kind kind() const { return m_kind; }
    /// What a value converts to; null where the property takes several types or asks its object.
    const qelm::MetaType* valueType() const { return m_valueType; }
    /// Whether a value may be a handle on an object, or a pointer to one; false for methods.
    bool canHoldObject() const;
    /// How many arguments a method takes.
    virtual std::size_t argumentCount() const { return 0; }
    virtual bool isConst() const { return false; }
    virtual bool isReadOnly() const { return true; }

    virtual bool isStateless(const BoundProperty& property) const;
    /// What the `Meta::Visible` annotations agree on; fully visible without one.
    virtual ryk::Flags<meta_property::VisibilityFlag> visibility(const BoundProperty& property) const;

    virtual qelm::Variant get(const BoundProperty& property) const;
    /// The value as the property's own type; void if there is no conversion.
    virtual qelm::Variant converted(const qelm::Variant& value) const;
    /// Takes a value that `converted` gave.
    virtual bool set(const BoundProperty& property, const qelm::Variant& value, ryk::Flags<SetterFlag> flags) const;
    virtual qelm::Variant invoke(const BoundProperty& property, std::size_t count, const qelm::Variant* arguments) const;

protected:
    /// A text key is the name; any other key is named by its decimal text.
    MetaProperty(Kind kind, qelm::Variant key, Annotations annotations, const qelm::MetaType* valueType = nullptr);
    MetaProperty(const MetaProperty&) = default;

private:
    Kind m_kind;
    const qelm::MetaType* m_valueType;
    qelm::Variant m_key;
    std::string m_name;
    Annotations m_annotations;
    bool m_hasVisibility = false;
    bool m_hasStateless = false;
};

/// A property whose objects keep data of it, and so can tell of its changes (`Level` 1).
template <int Level>
class NotifyableMetaProperty : public MetaProperty
{
public:
    /// The same property under another key; null where the class has no copies.
    virtual std::shared_ptr<MetaProperty> clone() const { return nullptr; }
    virtual bool hasData() const { return Level > 0; }

protected:
    using MetaProperty::MetaProperty;
};

namespace meta_property_details {

/// What a getter throws that is given an object of another class.
[[noreturn]] DATAMODELS_HOST_API void throwCastError(const MetaObject* metaObject, const char* wanted);

} // namespace meta_property_details
} // namespace zarn
