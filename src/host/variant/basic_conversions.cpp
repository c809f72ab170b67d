#include <host/variant/conversions.h>
#include <host/variant/number.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace qelm::Conversions {
namespace {

using Enumerators = std::vector<MetaType::Enumerator>;

// No number is longer; what is longer is no number, for which the text need not be copied.
constexpr std::size_t longestNumber = 64;

/// The text of a variant, in UTF-8 and without memory of its own as long as it could be a number or a name.
class TextView
{
public:
    explicit TextView(const Variant& source)
    {
        if (source.type()->kind() == Kind::String) {
            m_view = *static_cast<const std::string*>(source.address());
            return;
        }
        const auto& text = *static_cast<const QString*>(source.address());
        const auto isAscii = [](QChar character) { return character.unicode() < 128; };
        if (text.size() <= int(m_short.size()) && std::all_of(text.begin(), text.end(), isAscii)) {
            std::transform(text.begin(), text.end(), m_short.begin(),
                           [](QChar character) { return character.toLatin1(); });
            m_view = {m_short.data(), std::size_t(text.size())};
        } else {
            m_long = text.toStdString();
            m_view = m_long;
        }
    }
    TextView(const TextView&) = delete;
    TextView& operator=(const TextView&) = delete;

    std::string_view view() const { return m_view; }

private:
    std::array<char, longestNumber> m_short;
    std::string m_long;
    std::string_view m_view;
};

bool setText(const MetaType& type, void* value, std::string_view text)
{
    if (type.kind() == Kind::String)
        static_cast<std::string*>(value)->assign(text);
    else
        *static_cast<QString*>(value) = QString::fromUtf8(text.data(), int(text.size()));
    return true;
}

std::string_view written(const MetaType& type, const void* value, std::array<char, longestNumber>& room)
{
    const auto print = [&room](auto number) {
        return std::string_view(
            room.data(),
            std::size_t(std::to_chars(room.data(), room.data() + room.size(), number).ptr - room.data()));
    };
    if (type.kind() == Kind::Real)
        return type.size() == sizeof(float) ? print(*static_cast<const float*>(value))
                                            : print(*static_cast<const double*>(value));
    const MetaType& wide = type.kind() == Kind::Signed || type.is(MetaType::IsSignedEnumeration)
                               ? metaType<std::int64_t>()
                               : metaType<std::uint64_t>();
    std::int64_t number = 0;
    Number::load(type, value).store(wide, &number);
    return &wide == &metaType<std::int64_t>() ? print(number) : print(static_cast<std::uint64_t>(number));
}

const MetaType::Enumerator* byValue(const MetaType& type, const void* value)
{
    std::int64_t number = 0;
    if (!Number::load(type, value).store(metaType<std::int64_t>(), &number))
        return nullptr;
    const Enumerators& all = type.operations().enumerators();
    const auto found =
        std::find_if(all.begin(), all.end(), [number](const auto& one) { return one.value == number; });
    return found == all.end() ? nullptr : &*found;
}

const MetaType::Enumerator* byName(const MetaType& type, std::string_view name)
{
    const Enumerators& all = type.operations().enumerators();
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const auto& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

bool numberToText(const MetaType& type, void* value, const Variant& source)
{
    const MetaType& from = *source.type();
    if (from.kind() == Kind::Bool)
        return setText(type, value, *static_cast<const bool*>(source.address()) ? "true" : "false");
    if (from.kind() == Kind::Enumeration) {
        if (const auto* named = byValue(from, source.address()))
            return setText(type, value, named->name);
    }
    std::array<char, longestNumber> room;
    return setText(type, value, written(from, source.address(), room));
}

bool textToNumber(const MetaType& type, void* value, std::string_view text)
{
    if (type.kind() == Kind::Bool)
        return false; // what converts to bool is a switch in the outliner, and a name is none
    if (type.kind() == Kind::Enumeration) {
        if (const auto* named = byName(type, text))
            return Number::ofSigned(named->value).store(type, value);
    }
    const auto number = Number::parse(text);
    return number && number->store(type, value);
}

} // namespace

bool isNumber(Kind kind)
{
    return kind >= Kind::Bool && kind <= Kind::Enumeration;
}

bool isText(Kind kind)
{
    return kind == Kind::String || kind == Kind::QtString;
}

bool basicToBasic(const MetaType& type, void* value, const Variant& source)
{
    if (isNumber(source.type()->kind()))
        return isNumber(type.kind()) ? Number::load(*source.type(), source.address()).store(type, value)
                                     : numberToText(type, value, source);
    const TextView text(source);
    return isNumber(type.kind()) ? textToNumber(type, value, text.view()) : setText(type, value, text.view());
}

bool sequenceToSequence(Variant& target, const Variant& source)
{
    const auto& from = *source.type()->operations().sequence;
    const auto& to = *target.type()->operations().sequence;
    const std::size_t count = from.size(source.address());
    std::vector<Variant> elements;
    elements.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        Variant element = from.at(source.address(), i);
        if (!convertElement(element, to.element()))
            return false;
        elements.push_back(std::move(element));
    }
    target = to.make(elements);
    return true;
}

} // namespace qelm::Conversions
