#pragma once

#include <QModelIndex>
#include <QVariant>

#include <optional>
#include <string>

namespace qelm::datamodels::proxy {

/// A value that search results are sorted by, fetched once and kept in the form in which it is compared.
///
/// The left value's type decides, and the right one is converted to it: numbers, characters and Qt's dates go
/// by value, all else as text in natural order, in which item9 comes before item10. Invalid values come last,
/// and are equal among themselves.
class SearchKey
{
public:
    SearchKey() = default;
    explicit SearchKey(const QVariant& value);

    /// A whole number in the same order as the value, if it is one.
    std::optional<qlonglong> rank() const;

    /// Below 0 where this one sorts ahead of `other`, above 0 where behind, 0 where neither.
    int compare(const SearchKey& other) const;

private:
    bool isLess(const SearchKey& other) const;
    std::string text() const { return m_isText ? m_text : m_value.toString().toStdString(); }

    QVariant m_value;
    std::string m_text; ///< in UTF-8, of what is compared as text
    bool m_isText = false;
};

} // namespace qelm::datamodels::proxy
