#include <datamodels/proxy/sort_keys.h>

#include <QAbstractItemModel>

#include <algorithm>

namespace qelm::datamodels::proxy {

bool SortKeys::isLess(const QModelIndex& left, const QModelIndex& right)
{
    const Kind kind = kindAt(left);
    const auto a = static_cast<std::size_t>(left.row());
    const auto b = static_cast<std::size_t>(right.row());
    const bool isSameKind = kindAt(right) == kind;
    if (isSameKind) {
        switch (kind) {
        case Kind::Int:
        case Kind::LongLong: return m_slots[a].integer < m_slots[b].integer;
        case Kind::UInt:
        case Kind::ULongLong: return m_slots[a].natural < m_slots[b].natural;
        case Kind::Double:
        case Kind::Float: return m_slots[a].real < m_slots[b].real;
        case Kind::PlainText:
            return m_order.localeAware ? QString::localeAwareCompare(m_texts[a], m_texts[b]) < 0 : m_texts[a] < m_texts[b];
        case Kind::Other: return proxy::isLess(m_values[a], m_values[b], m_order);
        case Kind::Text:
        case Kind::Empty: break;
        }
    }
    return proxy::isLess(left.data(m_role), right.data(m_role), m_order);
}

QVariant SortKeys::value(const QModelIndex& index)
{
    makeRoom(index);
    const auto row = static_cast<std::size_t>(index.row());
    if (m_kinds[row] != Kind::Other || m_slots[row].id != index.internalId()) {
        const QVariant value = index.data(m_role);
        m_slots[row].id = index.internalId();
        m_values.resize(m_slots.size());
        m_values[row] = value;
        m_kinds[row] = Kind::Other;
    }
    return m_values[row];
}

void SortKeys::clear()
{
    std::fill(m_kinds.begin(), m_kinds.end(), Kind::Empty);
}

SortKeys::Kind SortKeys::kindAt(const QModelIndex& index)
{
    const auto row = static_cast<std::size_t>(index.row());
    if (row < m_slots.size() && m_kinds[row] != Kind::Empty && m_slots[row].id == index.internalId())
        return m_kinds[row];

    makeRoom(index);
    const Kind kind = fill(row, index.data(m_role));
    m_slots[row].id = index.internalId();
    m_kinds[row] = kind;
    return kind;
}

void SortKeys::makeRoom(const QModelIndex& index)
{
    if (static_cast<std::size_t>(index.row()) < m_slots.size())
        return;
    const int rows = std::max(index.row() + 1, index.model()->rowCount(index.parent()));
    m_kinds.resize(static_cast<std::size_t>(rows), Kind::Empty);
    m_slots.resize(m_kinds.size());
}

SortKeys::Kind SortKeys::fill(std::size_t row, const QVariant& value)
{
    Slot& slot = m_slots[row];
    switch (value.userType()) {
    case QMetaType::Int: slot.integer = value.toInt(); return Kind::Int;
    case QMetaType::LongLong: slot.integer = value.toLongLong(); return Kind::LongLong;
    case QMetaType::UInt: slot.natural = value.toUInt(); return Kind::UInt;
    case QMetaType::ULongLong: slot.natural = value.toULongLong(); return Kind::ULongLong;
    case QMetaType::Double: slot.real = value.toDouble(); return Kind::Double;
    case QMetaType::Float: slot.real = static_cast<double>(value.toFloat()); return Kind::Float;
    case QMetaType::QString: return fillText(row, value.toString());
    default:
        m_values.resize(m_slots.size());
        m_values[row] = value;
        return Kind::Other;
    }
}

// Folded character by character, as Qt compares: folding a whole text would expand some letters and sort them elsewhere.
SortKeys::Kind SortKeys::fillText(std::size_t row, const QString& text)
{
    if (std::any_of(text.cbegin(), text.cend(), [](QChar character) { return character.isSurrogate(); }))
        return Kind::Text;
    m_texts.resize(m_slots.size());
    m_texts[row] = text;
    if (!m_order.localeAware && m_order.caseSensitivity == Qt::CaseInsensitive) {
        for (QChar& character : m_texts[row])
            character = character.toCaseFolded();
    }
    return Kind::PlainText;
}

} // namespace qelm::datamodels::proxy
