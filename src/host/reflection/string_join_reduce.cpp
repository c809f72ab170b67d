#include <host/reflection/string_join_reduce.h>

#include <host/variant/variant_converter.h>

#include <algorithm>

namespace zarn {
namespace {

qelm::Variant joined(const std::vector<qelm::Variant>& values, const std::string& separator, bool repeats)
{
    std::vector<std::string> texts;
    for (const qelm::Variant& value : values) {
        std::optional<std::string> text = qelm::VariantConverter::convertTo<std::string>(value);
        if (text && (repeats || std::find(texts.begin(), texts.end(), *text) == texts.end()))
            texts.push_back(*std::move(text));
    }
    std::string all;
    for (std::size_t index = 0; index < texts.size(); ++index)
        all += (index ? separator : std::string()) + texts[index];
    return qelm::Variant(std::move(all));
}

} // namespace

Meta::MultiSelection::ReduceMap StringJoinReduce::meta(Ozy::BasicStringRef<char> separator, bool repeats)
{
    return {[separator = std::string(separator), repeats](const std::vector<qelm::Variant>& values) {
        return joined(values, separator, repeats);
    }};
}

} // namespace zarn
