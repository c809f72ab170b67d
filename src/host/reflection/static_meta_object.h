#pragma once

#include <host/base/profiler.h>
#include <host/reflection/base_static_meta_object.h>
#include <host/reflection/meta.h>
#include <host/reflection/meta_object_manager.h>
#include <host/reflection/object.h>
#include <host/reflection/object_data.h>
#include <host/reflection/static_meta_property.h>

#include <vector>

namespace zarn {

/// What a class says of itself. Specialise it for a class with `name`, its qualified name, and `declare`, a table of its
/// properties; `Bases`, a `BaseList` of reflected bases, and `annotations()` may be left out.
///
///     template <>
///     struct zarn::Reflection<Ship>
///     {
///         static constexpr const char* name = "game::Ship";
///         using Bases = BaseList<Vehicle>;
///         static void declare(StaticMetaObject<Ship>::Builder& ship)
///         {
///             ship.with(Meta::Precision{1})
///                 .value("draught", &Ship::draught, &Ship::setDraught)
///                 .value("length", &Ship::length, &Ship::setLength, Meta::ToolTip("in metres"));
///             ship.method("launch", &Ship::launch);
///         }
///     };
template <class T>
struct Reflection;

template <class... Bases>
struct BaseList
{
};

namespace detail {

/// The annotations in force while properties are declared, as a stack of sets.
class DATAMODELS_HOST_API AnnotationStack
{
public:
    AnnotationStack() : annotations_(1) {}
    ~AnnotationStack();
    AnnotationStack(const AnnotationStack&) = delete;
    AnnotationStack& operator=(const AnnotationStack&) = delete;

    void push(const Annotations& annotations);
    void pop();
    Annotations with(const Annotations& own) const;

private:
    std::vector<Annotations> annotations_;
};

} // namespace detail

/// The meta-object of a class `T`, made once, from what its `Reflection` says.
template <class T>
class StaticMetaObject final : public BaseStaticMetaObject<1>
{
public:
    class Builder;

    static StaticMetaObject& instance()
    {
        static StaticMetaObject metaObject;
        return metaObject;
    }
    ~StaticMetaObject() override { MetaObjectManager::instance().unregisterType(this); }

    qelm::Variant createInstance() const override
    {
        if constexpr (std::is_default_constructible_v<T>)
            return qelm::Variant(std::make_shared<T>());
        else
            return {};
    }

    std::shared_ptr<ObjectData> objectData(const ReflectedObject& object) const override
    {
        T* instance = zarn::cast<T>(object);
        if constexpr (std::is_base_of_v<Object, T>)
            return instance ? MetaObject::objectDataOf(*instance, object.value(), const_cast<StaticMetaObject*>(this)) : nullptr;
        else
            return detail::dataByAddress(object.address(), const_cast<StaticMetaObject*>(this));
    }

    MetaObject* mostDerived([[maybe_unused]] void* object) const override
    {
        MetaObject* found = nullptr;
        if constexpr (std::is_polymorphic_v<T>) {
            if (object)
                found = MetaObjectManager::instance().findType(typeid(*static_cast<T*>(object)));
        }
        return found ? found : const_cast<StaticMetaObject*>(this);
    }

private:
    StaticMetaObject();

    void* downcast([[maybe_unused]] void* object, [[maybe_unused]] const std::type_info& to) const override
    {
        if constexpr (std::is_polymorphic_v<T>) {
            T* base = static_cast<T*>(object);
            const MetaObject* real = mostDerived(object);
            if (real != this)
                return real->cast(dynamic_cast<void*>(base), real->type(), to);
        }
        return nullptr;
    }

    static Annotations classAnnotations();
    template <class... Bases>
    static std::vector<MetaObject::BaseClass> basesOf(BaseList<Bases...>)
    {
        return {MetaObject::BaseClass{&StaticMetaObject<Bases>::instance(),
                                      [](void* object) -> void* { return static_cast<Bases*>(static_cast<T*>(object)); }}...};
    }
    static std::vector<MetaObject::BaseClass> bases()
    {
        if constexpr (requires { typename Reflection<T>::Bases; })
            return basesOf(typename Reflection<T>::Bases());
        else
            return {};
    }
};

/// Declares the properties of a class, one line each, in order.
template <class T>
class StaticMetaObject<T>::Builder
{
public:
    explicit Builder(StaticMetaObject& metaObject) : m_metaObject(metaObject) {}

    void push(const Annotations& annotations) { m_stack.push(annotations); }
    void pop() { m_stack.pop(); }

    template <class Getter, class Setter, class... Values>
    Builder& value(std::string name, Getter getter, Setter setter, Values&&... annotations)
    {
        return add<ValueProperty<T, Getter, Setter>>(own(annotations...), std::move(name), getter, setter, false);
    }
    /// A data member that takes every value.
    template <class Field, class Class, class... Values>
    Builder& field(std::string name, Field Class::*field, Values&&... annotations)
    {
        return value(std::move(name), field, [field](T& object, const Field& set) { object.*field = set; },
                     std::forward<Values>(annotations)...);
    }
    template <class Getter, class... Values>
    Builder& readOnly(std::string name, Getter getter, Values&&... annotations)
    {
        return add<ValueProperty<T, Getter, std::nullptr_t>>(own(annotations...), std::move(name), getter, nullptr, false);
    }
    /// A value that never changes.
    template <class Getter, class... Values>
    Builder& constant(std::string name, Getter getter, Values&&... annotations)
    {
        return add<ValueProperty<T, Getter, std::nullptr_t>>(own(annotations...), std::move(name), getter, nullptr, true);
    }
    template <class Functor, class... Values>
    Builder& method(std::string name, Functor functor, Values&&... annotations)
    {
        return add<MethodProperty<T, Functor>>(own(annotations...), std::move(name), functor);
    }

    /// Gives the annotations to all that is declared in the chain that it begins.
    template <class... Values>
    auto with(Values&&... annotations)
    {
        return Group(*this, own(annotations...));
    }

private:
    class Group;

    template <class... Values>
    static Annotations own(const Values&... values)
    {
        return Annotations{qelm::Variant(values)...};
    }
    template <class Property, class... Arguments>
    Builder& add(const Annotations& own, Arguments... arguments)
    {
        const auto property = std::make_shared<Property>(std::move(arguments)..., m_stack.with(own));
        property->initialize();
        m_metaObject.addProperty(property);
        return *this;
    }

    StaticMetaObject& m_metaObject;
    detail::AnnotationStack m_stack;
};

template <class T>
class StaticMetaObject<T>::Builder::Group
{
public:
    Group(Builder& builder, const Annotations& annotations) : m_builder(builder) { m_builder.push(annotations); }
    ~Group() { m_builder.pop(); }
    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;

    template <class... Arguments>
    Group& value(Arguments&&... arguments)
    {
        m_builder.value(std::forward<Arguments>(arguments)...);
        return *this;
    }
    template <class... Arguments>
    Group& field(Arguments&&... arguments)
    {
        m_builder.field(std::forward<Arguments>(arguments)...);
        return *this;
    }
    template <class... Arguments>
    Group& readOnly(Arguments&&... arguments)
    {
        m_builder.readOnly(std::forward<Arguments>(arguments)...);
        return *this;
    }
    template <class... Arguments>
    Group& constant(Arguments&&... arguments)
    {
        m_builder.constant(std::forward<Arguments>(arguments)...);
        return *this;
    }
    template <class... Arguments>
    Group& method(Arguments&&... arguments)
    {
        m_builder.method(std::forward<Arguments>(arguments)...);
        return *this;
    }

private:
    Builder& m_builder;
};

template <class T>
StaticMetaObject<T>::StaticMetaObject()
    : BaseStaticMetaObject<1>(typeid(T), Reflection<T>::name, classAnnotations(), bases())
{
    const RYK::Profiler::Scope scope("Reflection|StaticMetaObject");
    Builder builder(*this);
    Reflection<T>::declare(builder);
    MetaObjectManager::instance().registerType(this);
}

template <class T>
Annotations StaticMetaObject<T>::classAnnotations()
{
    Annotations annotations;
    if constexpr (requires { Reflection<T>::annotations(); })
        annotations = Reflection<T>::annotations();
    if (annotations.contain<Meta::MultiSelection::ObjectType>())
        return annotations;
    std::string shortName = Reflection<T>::name;
    shortName.erase(0, shortName.rfind(':') + 1);
    annotations += qelm::Variant(Meta::MultiSelection::ObjectType{[shortName](const ReflectedObject&) { return shortName; }});
    return annotations;
}

/// A file-scope object that makes the meta-object of a class when its library is loaded.
template <class T>
struct ReflectAtLoad
{
    ReflectAtLoad() { StaticMetaObject<T>::instance(); }
};

} // namespace zarn
