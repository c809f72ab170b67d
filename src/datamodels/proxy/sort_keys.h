#pragma once

#include <datamodels/proxy/value_order.h>

#include <QModelIndex>
#include <QString>
#include <QVariant>

#include <vector>

namespace qelm::datamodels::proxy {

/// The values of one role, each fetched and decoded once for the length of a sort, which asks for every one some twenty
/// times. Comparisons have the result of `isLess` on freshly fetched values.
///
/// A sort compares siblings of one parent, then those of the next, so there is one slot a row; the index it was filled
/// for tells whether it still serves. What a comparison reads is kept apart and small, since a large sort waits for
/// memory more than for anything else. The owner clears the keys when the source changes.
class SortKeys
{
public:
    SortKeys(int role, const TextOrder& order) : m_role(role), m_order(order) {}

    bool isLess(const QModelIndex& left, const QModelIndex& right);
    QVariant value(const QModelIndex& index);
    void clear();

private:
    enum class Kind : unsigned char
    {
        Empty,
        Int,
        UInt,
        LongLong,
        ULongLong,
        Double,
        Float,
        Text,      ///< has surrogates, by which Qt's comparison looks further than one character
        PlainText, ///< compares the same when it is folded beforehand
        Other,     ///< compared as a QVariant
    };

    struct Slot
    {
        quintptr id = 0;
        union {
            qlonglong integer = 0;
            qulonglong natural;
            double real;
        };
    };

    Kind kindAt(const QModelIndex& index);
    void makeRoom(const QModelIndex& index);
    Kind fill(std::size_t row, const QVariant& value);
    Kind fillText(std::size_t row, const QString& text);

    int m_role;
    TextOrder m_order;
    std::vector<Kind> m_kinds;
    std::vector<Slot> m_slots;
    std::vector<QString> m_texts;   // empty until a text comes
    std::vector<QVariant> m_values; // empty until another value comes
};

} // namespace qelm::datamodels::proxy
