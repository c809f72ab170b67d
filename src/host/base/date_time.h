#pragma once

#include <QMetaType>

#include <cstdint>

namespace Ozy::DateTimeUtils {

/// The engine's calendar time: six plain fields, no time zone, no validity of its own. Month and day count from 1.
struct DateTime
{
    std::uint16_t year = 0;
    std::uint8_t month = 0;
    std::uint8_t day = 0;
    std::uint8_t hour = 0;
    std::uint8_t minute = 0;
    std::uint8_t second = 0;

    bool operator==(const DateTime&) const = default;
};

} // namespace Ozy::DateTimeUtils

Q_DECLARE_METATYPE(Ozy::DateTimeUtils::DateTime)
