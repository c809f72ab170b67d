#include <datamodels/proxy/value_order.h>

#include <host/base/date_time.h>

#include <QDateTime>
#include <QString>
#include <QVariant>

#include <ctime>
#include <tuple>

namespace qelm::datamodels::proxy {
namespace {

using Ozy::DateTimeUtils::DateTime;

DateTime epochInLocalTime()
{
    const std::time_t epoch = 0;
    std::tm local{};
    localtime_r(&epoch, &local);
    return {static_cast<std::uint16_t>(local.tm_year + 1900), static_cast<std::uint8_t>(local.tm_mon + 1),
            static_cast<std::uint8_t>(local.tm_mday),         static_cast<std::uint8_t>(local.tm_hour),
            static_cast<std::uint8_t>(local.tm_min),          static_cast<std::uint8_t>(local.tm_sec)};
}

DateTime toDateTime(QVariant value)
{
    const int type = qMetaTypeId<DateTime>();
    if (value.userType() == type || value.convert(type))
        return value.value<DateTime>();
    return epochInLocalTime();
}

bool isEarlier(const DateTime& left, const DateTime& right)
{
    const auto date = [](const DateTime& time) { return std::tie(time.year, time.month, time.day); };
    if (date(left) != date(right))
        return date(left) < date(right);
    // Intended: a later hour decides, an earlier one does not and leaves it to the minutes.
    if (left.hour > right.hour)
        return false;
    return std::tie(left.minute, left.second) < std::tie(right.minute, right.second);
}

template <class T>
bool isLessAs(const QVariant& left, const QVariant& right)
{
    if (left.userType() == right.userType())
        return *static_cast<const T*>(left.constData()) < *static_cast<const T*>(right.constData());
    return left.value<T>() < right.value<T>();
}

bool isLessAsText(const QString& left, const QString& right, const TextOrder& order)
{
    const int comparison = order.localeAware ? QString::localeAwareCompare(left, right)
                                             : QString::compare(left, right, order.caseSensitivity);
    return comparison < 0;
}

} // namespace

bool isLess(const QVariant& left, const QVariant& right, const TextOrder& order)
{
    if (!right.isValid())
        return false;
    if (!left.isValid())
        return true;

    switch (left.userType()) {
    case QMetaType::Int: return isLessAs<int>(left, right);
    case QMetaType::UInt: return isLessAs<uint>(left, right);
    case QMetaType::LongLong: return isLessAs<qlonglong>(left, right);
    case QMetaType::ULongLong: return isLessAs<qulonglong>(left, right);
    case QMetaType::Double: return isLessAs<double>(left, right);
    case QMetaType::Float: return isLessAs<float>(left, right);
    case QMetaType::QChar: return isLessAs<QChar>(left, right);
    case QMetaType::QDate: return isLessAs<QDate>(left, right);
    case QMetaType::QTime: return isLessAs<QTime>(left, right);
    case QMetaType::QDateTime: return isLessAs<QDateTime>(left, right);
    default: break;
    }
    if (left.userType() == qMetaTypeId<DateTime>())
        return isEarlier(toDateTime(left), toDateTime(right));
    return isLessAsText(left.toString(), right.toString(), order);
}

} // namespace qelm::datamodels::proxy
