#include <host/resources/resource_name.h>

#include <QByteArray>
#include <QTextCodec>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Ozy::FS {
namespace {

bool isOdd(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7f || byte == '\\';
}

bool isUtf8(std::string_view text)
{
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    utf8->toUnicode(text.data(), static_cast<int>(text.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

} // namespace

bool isResourceText(std::string_view text)
{
    if (std::any_of(text.begin(), text.end(), isOdd))
        return false;
    const bool isAscii = std::all_of(text.begin(), text.end(), [](char character) { return character > 0; });
    return isAscii || isUtf8(text);
}

std::optional<std::string> tidyPath(std::string_view path)
{
    std::vector<std::string_view> components;
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view component = path.substr(start, end - start);
        start = end + 1;
        if (component == ".." && components.empty())
            return {};
        if (component == "..")
            components.pop_back();
        else if (!component.empty() && component != ".")
            components.push_back(component);
    }

    std::string tidy;
    tidy.reserve(path.size());
    for (const std::string_view component : components)
        tidy.append(tidy.empty() ? "" : "/").append(component);
    return path.starts_with('/') ? tidy.insert(0, 1, '/') : tidy;
}

std::string joinPath(const std::string& root, std::string_view name)
{
    std::string path = root;
    if (!name.empty())
        path.append(root.ends_with('/') ? "" : "/").append(name);
    return path;
}

std::optional<std::string> pathBelow(const std::string& root, std::string_view path)
{
    if (!path.starts_with(root))
        return {};
    path.remove_prefix(root.size());
    if (path.empty())
        return std::string();
    if (root.ends_with('/'))
        return std::string(path);
    return path.starts_with('/') ? std::optional<std::string>(path.substr(1)) : std::nullopt;
}

std::string readable(std::string_view text)
{
    if (isResourceText(text))
        return std::string(text);
    std::string shown;
    for (const char character : text) {
        const bool isPlain = character > 0 && !isOdd(character);
        char escaped[5] = {character, 0};
        if (!isPlain)
            std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned char>(character));
        shown += escaped;
    }
    return shown;
}

} // namespace Ozy::FS
