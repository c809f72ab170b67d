#pragma once

#include <host/reflection/accessors.h>
#include <host/reflection/base_static_meta_object.h>
#include <host/reflection/collection_meta_object.h>
#include <host/reflection/container_commands.h>
#include <host/reflection/object.h>
#include <host/reflection/object_data.h>
#include <host/undo/commit_changes_scope.h>

#include <iterator>

namespace zarn {

namespace detail {

/// The vector of a collection: what it gives as `elements()` or by `*`, or the collection itself.
template <class C>
auto& elementsOf(C& collection)
{
    if constexpr (requires { collection.elements(); })
        return collection.elements();
    else if constexpr (requires { *collection; })
        return *collection;
    else
        return collection;
}

/// A value as an element of a collection: by itself, from a pointer to it, by conversion, or as a related class.
template <class T>
qelm::Variant elementFrom(const qelm::Variant& value)
{
    if (value.isVoid())
        return qelm::Variant(T());
    if (const std::type_info* pointee = value.type()->pointee(); pointee && *pointee == typeid(T) && value.pointee())
        return qelm::Variant(*static_cast<const T*>(value.pointee()));
    return convertedTo<T>(value);
}

} // namespace detail

/// The meta-object of a class `C` that holds a vector: its elements are the properties of its objects.
///
/// Make one for each such class, at load time or ahead of the first use; it lives as long as objects of the class do.
/// `C` is a `zarn::Object`, or any class whose objects stay where they are. Elements are pointers, shared pointers, or
/// plain values. Whoever changes the vector past the reflection brackets the change by a notifier.
template <class C, int Level>
class SequentialCollectionMetaObject : public CollectionMetaObject
{
    static_assert(Level == 0);
    using Vector = std::remove_reference_t<decltype(detail::elementsOf(std::declval<C&>()))>;
    using T = typename Vector::value_type;

public:
    /// The name of the class is the base name with that of the element's class in angle brackets.
    SequentialCollectionMetaObject(const std::string& baseName, const Annotations& annotations)
        : CollectionMetaObject(typeid(C), elementClass(), baseName, annotations)
    {
    }

    qelm::Variant createInstance() const override
    {
        if constexpr (std::is_default_constructible_v<C>)
            return qelm::Variant(std::make_shared<C>());
        else
            return {};
    }
    void* objectPointer(const qelm::Variant& value) const override { return zarn::cast<C>(value); }
    std::shared_ptr<ObjectData> objectData(const ReflectedObject& object) const override
    {
        auto* self = const_cast<SequentialCollectionMetaObject*>(this);
        if constexpr (std::is_base_of_v<Object, C>) {
            const C* container = zarn::cast<C>(object);
            return container ? MetaObject::objectDataOf(*container, object.value(), self) : nullptr;
        } else {
            return detail::dataByAddress(object.address(), self);
        }
    }

private:
    static const std::type_info& elementClass()
    {
        if constexpr (qelm::Detail::PointerProperties<T>::isPointer)
            return typeid(typename qelm::Detail::PointerProperties<T>::Pointee);
        else
            return typeid(T);
    }
    static Vector& vectorOf(const ReflectedObject& object) { return detail::elementsOf(*zarn::cast<C>(object)); }
    static auto positionOf(const ReflectedObject& object, std::size_t index)
    {
        return std::next(vectorOf(object).begin(), static_cast<std::ptrdiff_t>(index));
    }

    std::optional<std::size_t> elementCount(const ReflectedObject& object) const override
    {
        C* container = zarn::cast<C>(object);
        return container ? std::optional(detail::elementsOf(*container).size()) : std::nullopt;
    }
    qelm::Variant element(const ReflectedObject& object, std::size_t index) const override
    {
        return qelm::Variant(T(vectorOf(object)[index]));
    }
    qelm::Variant asElement(const qelm::Variant& value) const override { return detail::elementFrom<T>(value); }
    void setElement(const ReflectedObject& object, std::size_t index, const qelm::Variant& value) const override
    {
        vectorOf(object)[index] = value.value<T>();
    }
    void insertElement(const ReflectedObject& object, std::size_t index, const qelm::Variant& value) const override
    {
        vectorOf(object).insert(positionOf(object, index), value.value<T>());
    }
    void eraseElement(const ReflectedObject& object, std::size_t index) const override
    {
        vectorOf(object).erase(positionOf(object, index));
    }
    void recordRemoval(const ReflectedObject& object, std::size_t index) const override
    {
        Ozy::CommitChangesScope::makeUndo<InsertIntoContainer<T>>("Remove element from collection", object, index,
                                                                  T(vectorOf(object)[index]));
    }
};

/// The same as an object at file scope, for a class that no other declaration brings with it: known to the reflection from
/// the load of its library to the unload.
template <class C>
class AutoregisterMetaObject final : public SequentialCollectionMetaObject<C, 0>
{
public:
    using SequentialCollectionMetaObject<C, 0>::SequentialCollectionMetaObject;
};

} // namespace zarn
