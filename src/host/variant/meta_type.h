#pragma once

#include <host/base/flags.h>
#include <host/base/host_export.h>
#include <host/variant/type_properties.h>

#include <QVariant>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace qelm {

class BasicStream;
class Variant;

/// The description of one type that variants can hold: its name, and how its values are copied, compared,
/// converted and streamed.
///
/// There is one object a type in the process, whichever libraries use it, made at the first need of
/// `metaType<T>()`, and it lives until the process ends: types are told apart by address. The library that
/// needs a type first must stay loaded, since the operations are its code. Threads: any.
class DATAMODELS_HOST_API MetaType
{
public:
    /// What a pointer type says of its pointee.
    enum class Qualifier : std::uint32_t
    {
        Const = 1,
        Volatile = 2
    };

    enum Flag : std::uint32_t
    {
        HasConstPointee = 1,
        HasVolatilePointee = 2,
        IsSharedPointer = 4,
        IsSignedEnumeration = 8,
    };

    /// How a variant keeps a value: as plain bytes, as a reference on a shared box, or by the operations of
    /// its type.
    enum class Storage : std::uint8_t
    {
        Bytes,
        Box,
        Object
    };

    struct Data
    {
        const std::type_info& type;
        std::size_t size;
        std::uint32_t flags;
        const std::type_info* pointee; ///< null for what is neither pointer nor shared pointer
    };

    struct PointerOperations
    {
        const void* (*pointee)(const void* value);
        std::shared_ptr<const void> (*owner)(const void* value); ///< empty for plain pointers
        void (*assign)(void* value, const std::shared_ptr<const void>& owner, const void* pointee);
    };
    struct SequenceOperations
    {
        const MetaType& (*element)();
        std::size_t (*size)(const void* value);
        Variant (*at)(const void* value, std::size_t index);
        Variant (*make)(const std::vector<Variant>& elements); ///< elements of exactly the element type
    };
    struct QtOperations
    {
        int (*id)();
        void (*assign)(void* value, const void* from); ///< from the data of a `QVariant` of this id
    };
    struct Enumerator
    {
        std::int64_t value;
        std::string name;
    };

    /// Functions on values get their addresses, those on payloads the address of the variant's room. Null
    /// ones are what the type cannot do.
    struct Operations
    {
        Kind kind;
        Storage storage;
        void (*copy)(void* payload, const void* from);
        void (*move)(void* payload, void* from) noexcept; ///< destroys what it moved from
        void (*destroy)(void* payload) noexcept;
        void (*destroyBox)(void* box) noexcept;
        void (*detach)(void* payload); ///< makes a shared box one's own
        void (*makeDefault)(void* payload);
        bool (*equals)(const void* value, const void* other);
        void (*write)(BasicStream& stream, const void* value);
        bool (*read)(BasicStream& stream, void* value);
        const PointerOperations* pointer;
        const SequenceOperations* sequence;
        const QtOperations* qt;
        const std::vector<Enumerator>& (*enumerators)();
    };

    /// A value that a variant holds itself.
    template <class T>
    class InlinePayload;
    /// A value that copies of a variant share until one of them writes to it.
    template <class T>
    class CowPayload;

    MetaType(const MetaType&) = delete;
    MetaType& operator=(const MetaType&) = delete;

    /// The type's name as C++ writes it, without the standard library's inner namespaces and allocators.
    const char* name() const { return m_name; }
    static const char* prettyName(const std::type_info& type);

    const std::type_info& typeInfo() const { return m_data.type; }
    std::size_t size() const { return m_data.size; }
    Kind kind() const { return m_operations.kind; }
    bool is(Flag flag) const { return m_data.flags & flag; }
    const Operations& operations() const { return m_operations; }

    /// The type pointed to, null for what is no pointer.
    const std::type_info* pointee() const { return m_data.pointee; }
    ryk::Flags<Qualifier> pointerQualifiers() const;
    /// Whether a pointer with the qualifiers `source` may stand where one with those of `target` is wanted:
    /// qualifiers may be added, not dropped.
    static bool qualifiersMatch(ryk::Flags<Qualifier> source, ryk::Flags<Qualifier> target);

    bool isStreamable() const { return m_operations.write && m_operations.read && m_operations.makeDefault; }

    /// The type of a name, if anything has needed it yet, else null.
    static const MetaType* find(std::string_view name);
    /// All types needed so far, in the order of their first need.
    static std::vector<const MetaType*> all();

    /// The one description of a type; the first caller's is kept. For `DefaultMetaTypeImpl` only.
    static const MetaType& intern(const Data& data, const Operations& operations);

private:
    MetaType(const Data& data, const Operations& operations);

    Data m_data;
    Operations m_operations;
    const char* m_name;
};

} // namespace qelm
