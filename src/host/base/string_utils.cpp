#include <host/base/string_utils.h>

#include <algorithm>

namespace Ozy::StringUtils {
namespace {

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

unsigned char folded(char character)
{
    const bool isUpper = character >= 'A' && character <= 'Z';
    return static_cast<unsigned char>(isUpper ? character - 'A' + 'a' : character);
}

/// Cuts the digits at the front of `text` off and gives them without leading zeros.
std::string_view takeNumber(std::string_view& text)
{
    const std::size_t length = std::find_if_not(text.begin(), text.end(), isDigit) - text.begin();
    std::string_view digits = text.substr(0, length);
    text.remove_prefix(length);
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), length));
    return digits;
}

int compareNumbers(std::string_view& left, std::string_view& right)
{
    const std::string_view leftDigits = takeNumber(left);
    const std::string_view rightDigits = takeNumber(right);
    if (leftDigits.size() != rightDigits.size())
        return leftDigits.size() < rightDigits.size() ? -1 : 1;
    return leftDigits.compare(rightDigits);
}

int compareByValue(std::string_view left, std::string_view right)
{
    while (!left.empty() && !right.empty()) {
        if (isDigit(left.front()) && isDigit(right.front())) {
            if (const int order = compareNumbers(left, right))
                return order;
            continue;
        }
        if (const int order = folded(left.front()) - folded(right.front()))
            return order;
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    return static_cast<int>(right.empty()) - static_cast<int>(left.empty());
}

} // namespace

bool NumericStringCompare(std::string_view left, std::string_view right)
{
    // What both begin with decides nothing, but for a number that goes on behind it.
    const auto [first, second] = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    auto same = static_cast<std::size_t>(first - left.begin());
    while (same > 0 && isDigit(left[same - 1]))
        --same;
    const int order = compareByValue(left.substr(same), right.substr(same));
    return order ? order < 0 : left < right;
}

void replace(std::string& text, std::string_view from, std::string_view to)
{
    if (from.empty())
        return;
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace Ozy::StringUtils
