#include <datamodels/proxy/sort_keys.h>

#include <QAbstractItemModel>

#include <algorithm>

namespace qelm::datamodels::proxy {

SortKeys::Kind SortKeys::kindOf(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Int: return Kind::Int;
    case QMetaType::UInt: return Kind::UInt;
    case QMetaType::LongLong: return Kind::LongLong;
    case QMetaType::ULongLong: return Kind::ULongLong;
    case QMetaType::Double: return Kind::Double;
    case QMetaType::Float: return Kind::Float;
    case QMetaType::QString: {
        // Qt compares a surrogate together with its neighbour, which folding beforehand would not survive.
        const QString text = value.toString();
        const auto isSurrogate = [](QChar character) { return character.isSurrogate(); };
        return std::any_of(text.cbegin(), text.cend(), isSurrogate) ? Kind::Value : Kind::Text;
    }
    default: return Kind::Value;
    }
}

bool SortKeys::isLess(const QModelIndex& left, const QModelIndex& right)
{
    // Fetching one may change the kind, which drops the other; the second attempt has them both.
    for (int attempt = 0; attempt < 2 && !(isReady(left) && isReady(right)); ++attempt) {
        fetch(left);
        fetch(right);
    }
    if (!isReady(left) || !isReady(right))
        return proxy::isLess(left.data(m_role), right.data(m_role), m_order);

    const auto a = static_cast<std::size_t>(left.row());
    const auto b = static_cast<std::size_t>(right.row());
    switch (m_kind) {
    case Kind::Int: return m_ints[a] < m_ints[b];
    case Kind::LongLong: return m_numbers[a].integer < m_numbers[b].integer;
    case Kind::UInt:
    case Kind::ULongLong: return m_numbers[a].natural < m_numbers[b].natural;
    case Kind::Double:
    case Kind::Float: return m_numbers[a].real < m_numbers[b].real;
    case Kind::Text:
        return m_order.localeAware ? QString::localeAwareCompare(m_texts[a], m_texts[b]) < 0 : m_texts[a] < m_texts[b];
    default: return proxy::isLess(m_values[a], m_values[b], m_order);
    }
}

QVariant SortKeys::value(const QModelIndex& index)
{
    m_kind = Kind::Value;
    fetch(index);
    return m_values[static_cast<std::size_t>(index.row())];
}

void SortKeys::clear()
{
    m_isFetched.assign(m_isFetched.size(), false);
    m_ids.clear();
    m_kind = Kind::Unknown;
}

inline bool SortKeys::isReady(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    return row < m_isFetched.size() && m_isFetched[row]
        && index.internalId() == (m_ids.empty() ? m_commonId : m_ids[row]);
}

void SortKeys::fetch(const QModelIndex& index)
{
    if (isReady(index))
        return;
    const QVariant value = index.data(m_role);
    takeId(index);
    makeRoom(index);

    const Kind kind = kindOf(value);
    if (m_kind == Kind::Unknown)
        m_kind = kind;
    else if (m_kind != kind && m_kind != Kind::Value) {
        m_isFetched.assign(m_isFetched.size(), false);
        m_kind = Kind::Value;
    }
    store(static_cast<std::size_t>(index.row()), value);
}

void SortKeys::takeId(const QModelIndex& index)
{
    const QModelIndex parent = index.parent();
    if (m_kind == Kind::Unknown || parent != m_parent) {
        const Kind kind = m_kind == Kind::Value ? Kind::Value : Kind::Unknown;
        clear();
        m_kind = kind;
        m_parent = parent;
        m_commonId = index.internalId();
    } else if (m_ids.empty() && index.internalId() != m_commonId) {
        m_ids.assign(m_isFetched.size(), m_commonId);
    }
}

void SortKeys::makeRoom(const QModelIndex& index)
{
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= m_isFetched.size()) {
        const auto rows = static_cast<std::size_t>(index.model()->rowCount(m_parent));
        m_isFetched.resize(std::max(row + 1, rows), false);
    }
    if (!m_ids.empty()) {
        m_ids.resize(m_isFetched.size(), m_commonId);
        m_ids[row] = index.internalId();
    }
}

void SortKeys::store(std::size_t row, const QVariant& value)
{
    m_isFetched[row] = true;
    m_ints.resize(m_kind == Kind::Int ? m_isFetched.size() : 0);
    m_numbers.resize(m_kind > Kind::Int && m_kind < Kind::Text ? m_isFetched.size() : 0);
    m_texts.resize(m_kind == Kind::Text ? m_isFetched.size() : 0);
    m_values.resize(m_kind == Kind::Value ? m_isFetched.size() : 0);
    switch (m_kind) {
    case Kind::Int: m_ints[row] = value.toInt(); break;
    case Kind::LongLong: m_numbers[row].integer = value.toLongLong(); break;
    case Kind::UInt: m_numbers[row].natural = value.toUInt(); break;
    case Kind::ULongLong: m_numbers[row].natural = value.toULongLong(); break;
    case Kind::Double: m_numbers[row].real = value.toDouble(); break;
    case Kind::Float: m_numbers[row].real = static_cast<double>(value.toFloat()); break;
    case Kind::Text: m_texts[row] = comparable(value.toString()); break;
    default: m_values[row] = value; break;
    }
}

// Character by character, as Qt compares: folding a whole text would expand some letters and sort them elsewhere.
QString SortKeys::comparable(const QString& text) const
{
    if (m_order.localeAware || m_order.caseSensitivity == Qt::CaseSensitive)
        return text;
    QString folded = text;
    for (QChar& character : folded)
        character = character.toCaseFolded();
    return folded;
}

} // namespace qelm::datamodels::proxy
