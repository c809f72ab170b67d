#pragma once

#include <host/base/host_export.h>
#include <host/variant/variant.h>

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace qelm {

/// Conversions of variants, by rules that hold for all types of a kind and by those that were added for two
/// types.
///
/// A value that the target's type cannot hold fails, and never wraps or is cut. The rules:
/// - Numbers: integers and enumerations by range; reals to integers by rounding to the nearest, and by range; to reals
///   always, but for what only infinity could stand for. To `bool`: whether it is not zero.
/// - Text (`std::string`, UTF-8, and `QString`): to numbers if all of it is one, but not to `bool`; to enumerations by
///   name or number; from numbers the shortest text that reads back the same, from `bool` "true" and "false".
/// - `QVariant`: both ways, by what it holds. What Qt knows of a type serves types outside these rules.
/// - Pointers: adding qualifiers, from a shared pointer to a plain one, from classes to bases that were
/// declared.
/// - Vectors: element by element, from and to a list of `QVariant`s too.
/// Threads: any.
class DATAMODELS_HOST_API VariantConverter
{
public:
    using Conversion = std::function<bool(Variant& target, const Variant& source)>;
    using AddressCast = const void* (*)(const void*);

    /// Converts `source` to the type of the value in `target`, and puts it there. False, with `target` as it
    /// was, if there is no conversion, it fails, or either is void.
    static bool convert(Variant& target, const Variant& source);

    /// The same to a type known here.
    template <class To>
    static std::optional<To> convertTo(const Variant& source)
    {
        if (const To* exact = source.as<To>())
            return *exact;
        if constexpr (kindOf<To>() >= Kind::Bool && kindOf<To>() <= Kind::QtString) {
            To basic{};
            if (convertBasic(metaType<To>(), &basic, source))
                return basic;
        }
        Variant target{To{}};
        if (!convert(target, source))
            return {};
        return target.value<To>();
    }

    /// Adds a conversion for two types that the rules do not cover; a later one takes its place. `conversion`
    /// takes a `const From&` and gives an optional `To`.
    template <class From, class To, class Functor>
    static void add(Functor conversion)
    {
        addConversion(metaType<From>(), metaType<To>(),
                      [conversion = std::move(conversion)](Variant& target, const Variant& source) {
                          std::optional<To> converted = conversion(source.value<From>());
                          if (converted)
                              target = Variant(*std::move(converted));
                          return converted.has_value();
                      });
    }

    /// Lets pointers and shared pointers to a class stand in for those to its base, and on to bases declared
    /// for it.
    template <class Derived, class Base>
    static void addBase()
    {
        static_assert(std::is_base_of_v<Base, Derived>);
        addAddressCast(typeid(Derived), typeid(Base), [](const void* derived) -> const void* {
            return static_cast<const Base*>(static_cast<const Derived*>(derived));
        });
    }

private:
    // Numbers and texts, without a variant around the target.
    static bool convertBasic(const MetaType& type, void* value, const Variant& source);
    static void addConversion(const MetaType& from, const MetaType& to, Conversion conversion);
    static void addAddressCast(const std::type_info& from, const std::type_info& to, AddressCast cast);
};

/// A variant as a `QVariant`, for display: the one it holds or points to, else a conversion; invalid if there
/// is none.
DATAMODELS_HOST_API QVariant toQVariant(const Variant& value);

} // namespace qelm
