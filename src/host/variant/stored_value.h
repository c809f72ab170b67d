#pragma once

#include <host/base/host_export.h>
#include <host/variant/payload.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace qelm {

/// What a typed read of a variant with another value throws.
class DATAMODELS_HOST_API CastError : public std::runtime_error
{
public:
    CastError(const char* from, const char* to);
};

/// The storage form of a text literal in a variant.
inline std::string upcast(const char* text)
{
    return text ? std::string(text) : std::string();
}

namespace Detail {

/// What a variant keeps of a value that it is made from: texts of every kind become strings.
template <class T>
using Stored = std::conditional_t<std::is_same_v<std::decay_t<T>, const char*> ||
                                      std::is_same_v<std::decay_t<T>, char*> ||
                                      std::is_same_v<std::decay_t<T>, std::string_view>,
                                  std::string, std::decay_t<T>>;

template <class T>
inline constexpr bool isPayload = false;
template <class T>
inline constexpr bool isPayload<MetaType::InlinePayload<T>> = true;
template <class T>
inline constexpr bool isPayload<MetaType::CowPayload<T>> = true;

// Nothing here may ask how T is constructed: a class with a constructor from a variant would ask back.
template <class T>
concept Storable = !isPayload<std::decay_t<T>> && !std::is_same_v<std::decay_t<T>, std::nullptr_t>;

} // namespace Detail

} // namespace qelm
