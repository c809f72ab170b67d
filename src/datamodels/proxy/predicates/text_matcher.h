#pragma once

#include <datamodels/datamodels_export.h>

#include <QString>
#include <QVariant>

#include <array>

namespace qelm::datamodels::proxy {

/// Finds a text in others whatever the case, with the answers of `QString::contains(text, Qt::CaseInsensitive)`.
///
/// Made for asking one text of very many: it is folded once, when set, and a needle of ASCII letters is sought eight
/// characters a step, without copying or folding what it is sought in. Any other needle goes through Qt.
class DATAMODELS_API TextMatcher
{
public:
    const QString& text() const { return m_text; }
    void setText(QString text);

    /// Whether `haystack` holds the text; the empty text is in every haystack.
    bool matches(const QString& haystack) const;
    /// The same for the text form of a value; strings are read in place.
    bool matches(const QVariant& value) const;

private:
    /// The characters that fold onto one of the needle's.
    using Variants = std::array<char16_t, 3>;

    static Variants variantsOf(char16_t folded);
    bool isAt(const char16_t* position) const;
    bool isIn(const char16_t* haystack, qsizetype length) const;

    QString m_text;
    QString m_folded; // empty where Qt has to do it
    Variants m_first{};
    Variants m_second{};
};

} // namespace qelm::datamodels::proxy
