#include <datamodels/proxy/search_matcher.h>

#include <datamodels/proxy/predicates/text_matcher.h>

#include <QModelIndex>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

namespace qelm::datamodels::proxy {
namespace {

constexpr int wholeText = 100;
constexpr int beginningOfText = 75;
constexpr int beginningOfWord = 50;
constexpr int elsewhere = 25;

/// A word as it is written.
class PlainWord
{
public:
    explicit PlainWord(const QString& text) { m_matcher.setText(text); }

    bool mayBeIn(const QString& text) const { return m_matcher.matches(text); }
    /// The length of the word at a place of the text, or 0.
    int lengthAt(const QString& text, int place) const
    {
        const QString& word = m_matcher.text();
        return text.midRef(place, word.size()).compare(word, Qt::CaseInsensitive) == 0 ? word.size() : 0;
    }

private:
    TextMatcher m_matcher;
};

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// Where the digits at a place end.
int endOfNumber(const QString& text, int place)
{
    const auto end = std::find_if_not(text.cbegin() + place, text.cend(), isDigit);
    return static_cast<int>(end - text.cbegin());
}

/// A word whose numbers go by their value.
class NaturalWord
{
public:
    explicit NaturalWord(const QString& text)
    {
        for (int at = 0; at < text.size();) {
            const bool isNumber = isDigit(text[at]);
            const int end = isNumber ? endOfNumber(text, at) : endOfLetters(text, at);
            m_parts.push_back({isNumber, isNumber ? value(text, at, end) : text.mid(at, end - at)});
            if (!isNumber && m_letters.text().isEmpty())
                m_letters.setText(m_parts.back().text);
            at = end;
        }
    }

    bool mayBeIn(const QString& text) const { return m_letters.matches(text); }
    int lengthAt(const QString& text, int place) const
    {
        // Not from inside of a number.
        if (m_parts.front().isNumber && place > 0 && isDigit(text[place - 1]))
            return 0;
        int at = place;
        for (const Part& part : m_parts) {
            const int end = part.isNumber ? endOfNumber(text, at) : at + part.text.size();
            const bool isSame =
                part.isNumber
                    ? end > at && value(text, at, end) == part.text
                    : text.midRef(at, part.text.size()).compare(part.text, Qt::CaseInsensitive) == 0;
            if (!isSame)
                return 0;
            at = end;
        }
        return at - place;
    }

private:
    struct Part
    {
        bool isNumber;
        QString text; ///< of a number without zeros in front
    };

    static int endOfLetters(const QString& text, int place)
    {
        return static_cast<int>(std::find_if(text.cbegin() + place, text.cend(), isDigit) - text.cbegin());
    }
    static QString value(const QString& text, int first, int end)
    {
        while (first < end - 1 && text[first] == u'0')
            ++first;
        return text.mid(first, end - first);
    }

    std::vector<Part> m_parts;
    TextMatcher m_letters; ///< the first part that is no number, for a quick look
};

int scoreAt(const QString& text, int place, int length)
{
    if (place == 0)
        return length == text.size() ? wholeText : beginningOfText;
    const bool isCamelHump = text[place].isUpper() && text[place - 1].isLower();
    return isCamelHump || !text[place - 1].isLetterOrNumber() ? beginningOfWord : elsewhere;
}

/// Adds a range to those that stand ahead of it, and joins what touches.
void add(QVector<SearchRange>& ranges, const SearchRange& range)
{
    if (ranges.isEmpty() || range.start > ranges.last().start + ranges.last().length)
        ranges.append(range);
    else
        ranges.last().length =
            std::max(ranges.last().length, range.start + range.length - ranges.last().start);
}

template <class Word>
class WordsPredicate
{
public:
    WordsPredicate(const QString& text, int role) : m_role(role)
    {
        for (const QString& word : text.simplified().split(u' ', Qt::SkipEmptyParts))
            m_words.emplace_back(word);
    }

    bool operator()(const QModelIndex& index, QVariant& info) const
    {
        const QString text = index.data(m_role).toString();
        const auto mayMatch = [&text](const Word& word) { return word.mayBeIn(text); };
        if (!std::all_of(m_words.begin(), m_words.end(), mayMatch))
            return false;
        const std::optional<SearchMatch> match = find(text);
        if (match)
            info = QVariant::fromValue(*match);
        return match.has_value();
    }

private:
    std::optional<SearchMatch> find(const QString& text) const
    {
        std::vector<SearchRange> found;
        int sum = 0;
        for (const Word& word : m_words) {
            int best = 0;
            for (int place = 0; place < text.size(); ++place) {
                const int length = word.lengthAt(text, place);
                if (length == 0)
                    continue;
                found.push_back({place, length});
                best = std::max(best, scoreAt(text, place, length));
            }
            if (best == 0)
                return std::nullopt;
            sum += best;
        }

        std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.start < b.start; });
        SearchMatch match;
        match.score = m_words.empty() ? 0 : sum / static_cast<int>(m_words.size());
        for (const SearchRange& range : found)
            add(match.ranges, range);
        return match;
    }

    int m_role;
    std::vector<Word> m_words;
};

} // namespace

void SearchMatcher::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    Q_EMIT textChanged();
}

void SearchMatcher::setRole(int role)
{
    if (m_role == role)
        return;
    m_role = role;
    Q_EMIT roleChanged();
}

void SearchMatcher::search(SearchProxyModel* model, const QModelIndex& root) const
{
    if (model)
        model->search(root, predicate(), true);
}

SearchProxyModel::Predicate TextSearchMatcher::predicate() const
{
    return WordsPredicate<PlainWord>(text(), role());
}

SearchProxyModel::Predicate NaturalSearchMatcher::predicate() const
{
    return WordsPredicate<NaturalWord>(text(), role());
}

} // namespace qelm::datamodels::proxy
