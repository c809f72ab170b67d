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
/// for tells whether it still serves. The owner clears the keys when the source changes.
class SortKeys
{
public:
    SortKeys(int role, const TextOrder& order) : m_role(role), m_order(order) {}

    bool isLess(const QModelIndex& left, const QModelIndex& right);
    QVariant value(const QModelIndex& index);
    void clear() { ++m_generation; }

private:
    struct Key
    {
        unsigned generation = 0; // 0 while the slot is empty
        quintptr id = 0;
        int type = 0;
        bool isPlain = false; // the text has no surrogates, so that folding it beforehand changes no comparison
        union {
            qlonglong integer = 0;
            qulonglong natural;
            double real;
        };
        QString text;
        QVariant value;
    };

    void makeRoom(const QModelIndex& index);
    Key& key(const QModelIndex& index);
    void fill(Key& key, const QModelIndex& index) const;
    void fillText(Key& key) const;
    bool isLessText(const Key& left, const Key& right) const;

    int m_role;
    TextOrder m_order;
    std::vector<Key> m_keys;
    unsigned m_generation = 1;
};

} // namespace qelm::datamodels::proxy
