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
/// A sort compares siblings of one parent, then those of the next, so a key is found by its row; the index it was
/// fetched for tells whether it still serves. All keys are of one kind: values of mixed types are kept as they are. A
/// large sort waits for memory more than for anything else, hence the bare arrays. The owner clears the keys when the
/// source changes.
class SortKeys
{
public:
    SortKeys(int role, const TextOrder& order) : m_role(role), m_order(order) {}

    bool isLess(const QModelIndex& left, const QModelIndex& right);
    QVariant value(const QModelIndex& index);
    void clear();

private:
    enum class Kind
    {
        Unknown, ///< no key yet
        Int,
        UInt,
        LongLong,
        ULongLong,
        Double,
        Float,
        Text,  ///< folded where case does not count
        Value, ///< any other, and mixtures
    };

    static Kind kindOf(const QVariant& value);

    bool isReady(const QModelIndex& index) const;
    void fetch(const QModelIndex& index);
    void makeRoom(const QModelIndex& index);
    void takeId(const QModelIndex& index);
    void store(std::size_t row, const QVariant& value);
    QString comparable(const QString& text) const;

    int m_role;
    TextOrder m_order;
    Kind m_kind = Kind::Unknown;
    std::vector<bool> m_isFetched;

    // Most models have one internal id for all siblings; those that have one a row need them all.
    QModelIndex m_parent;
    quintptr m_commonId = 0;
    std::vector<quintptr> m_ids;

    union Number
    {
        qlonglong integer;
        qulonglong natural;
        double real;
    };
    // By row; only the one for the kind is filled.
    std::vector<int> m_ints;
    std::vector<Number> m_numbers;
    std::vector<QString> m_texts;
    std::vector<QVariant> m_values;
};

} // namespace qelm::datamodels::proxy
