#pragma once

#include <host/reflection/meta_object.h>
#include <host/reflection/reflected_object.h>
#include <host/variant/variant_converter.h>

#include <memory>

namespace zarn {

namespace detail {

template <class T>
inline constexpr bool isSharedPointer = false;
template <class T>
inline constexpr bool isSharedPointer<std::shared_ptr<T>> = true;

DATAMODELS_HOST_API bool isReflected(const std::type_info& type);
DATAMODELS_HOST_API void* castByClass(void* object, const std::type_info& from, const std::type_info& to);

/// The class that an object really is of, if that has reflection, else the one that it is known by.
template <class T>
const std::type_info& classOf(const T& object)
{
    if constexpr (std::is_polymorphic_v<T>) {
        if (isReflected(typeid(object)))
            return typeid(object);
    }
    return typeid(T);
}

} // namespace detail

/// A `T` out of a pointer or shared pointer to one, or to a class that it is a base or a derived class of, or out of what
/// converts to a `T*`; null otherwise. The value owns the result, or does not: it must outlive the pointer either way.
template <class T>
T* cast(const qelm::Variant& value)
{
    if (value.isVoid())
        return nullptr;
    if (T* const* exact = value.as<T*>())
        return *exact;
    if (const T* const* constant = value.as<const T*>())
        return const_cast<T*>(*constant);
    if (const std::shared_ptr<T>* shared = value.as<std::shared_ptr<T>>())
        return shared->get();
    if (const auto converted = qelm::VariantConverter::convertTo<T*>(value))
        return *converted;
    const std::type_info* pointee = value.type()->pointee();
    return pointee ? static_cast<T*>(detail::castByClass(const_cast<void*>(value.pointee()), *pointee, typeid(T))) : nullptr;
}

/// The object behind a handle as a `T`; null for an invalid handle and for an object of another class.
template <class T>
T* cast(const ReflectedObject& object)
{
    const MetaObject* metaObject = object.metaObject();
    if (!metaObject)
        return nullptr;
    if (metaObject->type() == typeid(T))
        return static_cast<T*>(object.address());
    if (void* related = metaObject->cast(object.address(), metaObject->type(), typeid(T)))
        return static_cast<T*>(related);
    return cast<T>(object.value());
}

/// A handle on an object of a class with reflection, which it does not keep alive.
template <class T>
requires(!detail::isSharedPointer<std::remove_const_t<T>>)
ReflectedObject reflect(T& object)
{
    ReflectedObject handle;
    handle.init(qelm::Variant(&object), TypeInfo(false, typeid(T*), detail::classOf(object), typeid(T)), nullptr);
    return handle;
}

/// The same, keeping the object alive.
template <class T>
ReflectedObject reflect(const std::shared_ptr<T>& object)
{
    ReflectedObject handle;
    if (object)
        handle.init(qelm::Variant(object), TypeInfo(true, typeid(object), detail::classOf(*object), typeid(T)), nullptr);
    return handle;
}

} // namespace zarn
