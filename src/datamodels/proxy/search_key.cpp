#include <datamodels/proxy/search_key.h>

#include <host/base/string_utils.h>

#include <QDate>
#include <QDateTime>
#include <QTime>

namespace qelm::datamodels::proxy {
namespace {

bool isComparedAsText(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::UnknownType:
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::QChar:
    case QMetaType::QDate:
    case QMetaType::QTime:
    case QMetaType::QDateTime:
        return false;
    default:
        return true;
    }
}

template <class T>
bool isLessAs(const QVariant& left, const QVariant& right)
{
    return left.value<T>() < right.value<T>();
}

} // namespace

SearchKey::SearchKey(const QVariant& value) : m_value(value), m_isText(isComparedAsText(value))
{
    if (m_isText)
        m_text = value.toString().toStdString();
}

std::optional<qlonglong> SearchKey::rank() const
{
    switch (m_value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
        return m_value.toInt();
    default:
        return std::nullopt;
    }
}

int SearchKey::compare(const SearchKey& other) const
{
    if (m_isText && other.m_isText && m_text == other.m_text)
        return 0;
    if (other.isLess(*this))
        return 1;
    return isLess(other) ? -1 : 0;
}

bool SearchKey::isLess(const SearchKey& other) const
{
    if (!m_value.isValid())
        return false;
    if (!other.m_value.isValid())
        return true;

    switch (m_value.userType()) {
    case QMetaType::Bool:
    case QMetaType::Int:
        return m_value.toInt() < other.m_value.toInt();
    case QMetaType::UInt:
        return isLessAs<uint>(m_value, other.m_value);
    case QMetaType::LongLong:
        return isLessAs<qlonglong>(m_value, other.m_value);
    case QMetaType::ULongLong:
        return isLessAs<qulonglong>(m_value, other.m_value);
    case QMetaType::Double:
        return isLessAs<double>(m_value, other.m_value);
    case QMetaType::Float:
        return isLessAs<float>(m_value, other.m_value);
    case QMetaType::QChar:
        return isLessAs<QChar>(m_value, other.m_value);
    case QMetaType::QDate:
        return isLessAs<QDate>(m_value, other.m_value);
    case QMetaType::QTime:
        return isLessAs<QTime>(m_value, other.m_value);
    case QMetaType::QDateTime:
        return isLessAs<QDateTime>(m_value, other.m_value);
    default:
        return Ozy::StringUtils::NumericStringCompare(m_text, other.m_isText ? other.m_text : other.text());
    }
}

} // namespace qelm::datamodels::proxy
