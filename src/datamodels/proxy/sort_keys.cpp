#include <datamodels/proxy/sort_keys.h>

#include <QAbstractItemModel>

#include <algorithm>

namespace qelm::datamodels::proxy {

bool SortKeys::isLess(const QModelIndex& left, const QModelIndex& right)
{
    makeRoom(left);
    makeRoom(right);
    const Key& first = key(left);
    const Key& second = key(right);
    if (first.type != second.type)
        return proxy::isLess(first.value, second.value, m_order);

    switch (first.type) {
    case QMetaType::Int:
    case QMetaType::LongLong: return first.integer < second.integer;
    case QMetaType::UInt:
    case QMetaType::ULongLong: return first.natural < second.natural;
    case QMetaType::Double:
    case QMetaType::Float: return first.real < second.real;
    case QMetaType::QString: return isLessText(first, second);
    default: return proxy::isLess(first.value, second.value, m_order);
    }
}

QVariant SortKeys::value(const QModelIndex& index)
{
    makeRoom(index);
    return key(index).value;
}

void SortKeys::makeRoom(const QModelIndex& index)
{
    if (static_cast<std::size_t>(index.row()) >= m_keys.size())
        m_keys.resize(static_cast<std::size_t>(std::max(index.row() + 1, index.model()->rowCount(index.parent()))));
}

SortKeys::Key& SortKeys::key(const QModelIndex& index)
{
    Key& key = m_keys[static_cast<std::size_t>(index.row())];
    if (key.generation != m_generation || key.id != index.internalId())
        fill(key, index);
    return key;
}

void SortKeys::fill(Key& key, const QModelIndex& index) const
{
    key.generation = m_generation;
    key.id = index.internalId();
    key.value = index.data(m_role);
    key.type = key.value.userType();
    switch (key.type) {
    case QMetaType::Int: key.integer = key.value.toInt(); break;
    case QMetaType::LongLong: key.integer = key.value.toLongLong(); break;
    case QMetaType::UInt: key.natural = key.value.toUInt(); break;
    case QMetaType::ULongLong: key.natural = key.value.toULongLong(); break;
    case QMetaType::Double:
    case QMetaType::Float: key.real = key.value.toDouble(); break;
    case QMetaType::QString: fillText(key); break;
    default: break;
    }
}

// Character by character, as Qt compares: folding a whole text would expand some letters and sort them elsewhere.
void SortKeys::fillText(Key& key) const
{
    key.text = key.value.toString();
    key.isPlain = std::none_of(key.text.cbegin(), key.text.cend(), [](QChar character) { return character.isSurrogate(); });
    if (key.isPlain && !m_order.localeAware && m_order.caseSensitivity == Qt::CaseInsensitive) {
        for (QChar& character : key.text)
            character = character.toCaseFolded();
    }
}

bool SortKeys::isLessText(const Key& left, const Key& right) const
{
    if (m_order.localeAware)
        return QString::localeAwareCompare(left.text, right.text) < 0;
    const bool isReady = left.isPlain && right.isPlain;
    return QString::compare(left.text, right.text, isReady ? Qt::CaseSensitive : m_order.caseSensitivity) < 0;
}

} // namespace qelm::datamodels::proxy
