#include <datamodels/proxy/predicates/text_matcher.h>

#include <algorithm>
#include <bit>
#include <utility>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace qelm::datamodels::proxy {
namespace {

// The only characters beyond ASCII whose simple case folding is an ASCII letter.
constexpr char16_t longS = 0x017F;
constexpr char16_t kelvinSign = 0x212A;

constexpr char16_t foldedToAscii(char16_t character)
{
    if (character >= u'A' && character <= u'Z')
        return static_cast<char16_t>(character + (u'a' - u'A'));
    if (character == longS)
        return u's';
    return character == kelvinSign ? u'k' : character;
}

bool isAscii(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar character) { return character.unicode() < 0x80; });
}

const char16_t* utf16(const QString& text)
{
    return reinterpret_cast<const char16_t*>(text.constData());
}

#if defined(__SSE2__)
constexpr qsizetype step = 8;

class AnyOf
{
public:
    explicit AnyOf(const std::array<char16_t, 3>& variants)
        : m_a(_mm_set1_epi16(static_cast<short>(variants[0])))
        , m_b(_mm_set1_epi16(static_cast<short>(variants[1])))
        , m_c(_mm_set1_epi16(static_cast<short>(variants[2])))
    {
    }
    __m128i in(__m128i characters) const
    {
        return _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi16(characters, m_a), _mm_cmpeq_epi16(characters, m_b)),
                            _mm_cmpeq_epi16(characters, m_c));
    }

private:
    __m128i m_a;
    __m128i m_b;
    __m128i m_c;
};

__m128i eightAt(const char16_t* characters)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(characters));
}
#endif

} // namespace

void TextMatcher::setText(QString text)
{
    m_text = std::move(text);
    m_folded = QString();
    if (m_text.isEmpty() || !isAscii(m_text))
        return;

    m_folded = m_text.toLower();
    m_first = variantsOf(utf16(m_folded)[0]);
    m_second = variantsOf(utf16(m_folded)[std::min(m_folded.size() - 1, 1)]);
}

TextMatcher::Variants TextMatcher::variantsOf(char16_t folded)
{
    const bool isLetter = folded >= u'a' && folded <= u'z';
    const auto upper = isLetter ? static_cast<char16_t>(folded - (u'a' - u'A')) : folded;
    const char16_t beyondAscii = folded == u's' ? longS : folded == u'k' ? kelvinSign : folded;
    return {folded, upper, beyondAscii};
}

bool TextMatcher::matches(const QVariant& value) const
{
    if (value.userType() == QMetaType::QString)
        return matches(*static_cast<const QString*>(value.constData()));
    return matches(value.toString());
}

bool TextMatcher::matches(const QString& haystack) const
{
    if (m_folded.isEmpty())
        return haystack.contains(m_text, Qt::CaseInsensitive);
    return isIn(utf16(haystack), haystack.size());
}

bool TextMatcher::isAt(const char16_t* position) const
{
    const char16_t* needle = utf16(m_folded);
    return std::equal(needle, needle + m_folded.size(), position,
                      [](char16_t folded, char16_t character) { return folded == foldedToAscii(character); });
}

bool TextMatcher::isIn(const char16_t* haystack, qsizetype length) const
{
    const qsizetype positions = length - m_folded.size() + 1;
    qsizetype position = 0;
#if defined(__SSE2__)
    // With a needle of one character the pairs' second half stands for the first again, at the same place.
    const qsizetype second = m_folded.size() > 1 ? 1 : 0;
    const AnyOf first(m_first);
    const AnyOf next(m_second);
    for (; position < positions && position + step + second <= length; position += step) {
        const __m128i pairs = _mm_and_si128(first.in(eightAt(haystack + position)),
                                            next.in(eightAt(haystack + position + second)));
        for (unsigned hits = static_cast<unsigned>(_mm_movemask_epi8(pairs)) & 0x5555U; hits; hits &= hits - 1) {
            const qsizetype candidate = position + std::countr_zero(hits) / 2;
            if (candidate < positions && isAt(haystack + candidate))
                return true;
        }
    }
#endif
    for (; position < positions; ++position) {
        if (isAt(haystack + position))
            return true;
    }
    return false;
}

} // namespace qelm::datamodels::proxy
