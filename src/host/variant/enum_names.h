#pragma once

#include <host/variant/meta_type.h>

#include <QMetaEnum>

#include <cstdint>
#include <type_traits>
#include <utility>
#include <vector>

namespace qelm {

/// The names of an enumeration's values, for conversions from and to text and for streams.
///
/// An enumeration that Qt knows (`Q_ENUM`, `Q_ENUM_NS`) has them already. For another one, specialise this
/// with a function like the one below before a variant first holds it:
///
///     template <>
///     struct qelm::EnumNames<Mode> { static std::vector<MetaType::Enumerator> values(); };
template <class Enum>
struct EnumNames
{
    static std::vector<MetaType::Enumerator> values()
    {
        std::vector<MetaType::Enumerator> enumerators;
        if constexpr (QtPrivate::IsQEnumHelper<Enum>::Value) {
            const auto known = QMetaEnum::fromType<Enum>();
            for (int i = 0; i < known.keyCount(); ++i)
                enumerators.push_back({known.value(i), known.key(i)});
        }
        return enumerators;
    }
};

} // namespace qelm
