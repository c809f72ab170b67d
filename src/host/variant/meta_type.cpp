#include <host/variant/meta_type.h>

#include <cxxabi.h>

#include <cstdlib>
#include <mutex>
#include <typeindex>
#include <unordered_map>

namespace qelm {
namespace {

struct Registry
{
    std::mutex mutex;
    std::unordered_map<std::type_index, const MetaType*> byType;
    std::unordered_map<std::string_view, const MetaType*> byName;
    std::vector<const MetaType*> inOrder;
};

struct Names
{
    std::mutex mutex;
    std::unordered_map<std::type_index, std::string> names;
};

// Never destroyed: static objects of other libraries hold variants until the very end.
Registry& registry()
{
    static auto* instance = new Registry;
    return *instance;
}

Names& names()
{
    static auto* instance = new Names;
    return *instance;
}

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

// Default arguments of containers say nothing: ", std::allocator<...>" goes, with the blank that follows it.
void dropAllocators(std::string& text)
{
    static constexpr std::string_view allocator = ", std::allocator<";
    for (std::size_t at = text.find(allocator); at != std::string::npos; at = text.find(allocator)) {
        std::size_t end = at + allocator.size();
        for (int depth = 1; depth > 0 && end < text.size(); ++end)
            depth += text[end] == '<' ? 1 : text[end] == '>' ? -1 : 0;
        if (end < text.size() && text[end] == ' ')
            ++end;
        text.erase(at, end - at);
    }
}

std::string readableName(const std::type_info& type)
{
    int status = 0;
    char* demangled = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
    std::string text = status == 0 ? demangled : type.name();
    std::free(demangled);

    replaceAll(text, "std::__cxx11::", "std::");
    replaceAll(text, "std::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string");
    dropAllocators(text);
    replaceAll(text, "> >", ">>");
    return text;
}

} // namespace

MetaType::MetaType(const Data& data, const Operations& operations)
    : m_data(data), m_operations(operations), m_name(prettyName(data.type))
{
}

const char* MetaType::prettyName(const std::type_info& type)
{
    const std::lock_guard lock(names().mutex);
    std::string& name = names().names[type];
    if (name.empty())
        name = readableName(type);
    return name.c_str();
}

ryk::Flags<MetaType::Qualifier> MetaType::pointerQualifiers() const
{
    ryk::Flags<Qualifier> qualifiers;
    if (is(HasConstPointee))
        qualifiers |= Qualifier::Const;
    if (is(HasVolatilePointee))
        qualifiers |= Qualifier::Volatile;
    return qualifiers;
}

bool MetaType::qualifiersMatch(ryk::Flags<Qualifier> source, ryk::Flags<Qualifier> target)
{
    return (source & ~target).value() == 0;
}

const MetaType* MetaType::find(std::string_view name)
{
    const std::lock_guard lock(registry().mutex);
    const auto found = registry().byName.find(name);
    return found == registry().byName.end() ? nullptr : found->second;
}

std::vector<const MetaType*> MetaType::all()
{
    const std::lock_guard lock(registry().mutex);
    return registry().inOrder;
}

const MetaType& MetaType::intern(const Data& data, const Operations& operations)
{
    const std::lock_guard lock(registry().mutex);
    const MetaType*& type = registry().byType[data.type];
    if (!type) {
        type = new MetaType(data, operations);
        registry().byName.try_emplace(type->name(), type);
        registry().inOrder.push_back(type);
    }
    return *type;
}

} // namespace qelm
