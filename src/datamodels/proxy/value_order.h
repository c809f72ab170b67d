#pragma once

#include <Qt>

class QVariant;

namespace qelm::datamodels::proxy {

/// How texts are compared: in the user's locale, or by code units with or without regard to case.
struct TextOrder
{
    bool localeAware = false;
    Qt::CaseSensitivity caseSensitivity = Qt::CaseInsensitive;
};

/// Whether `left` sorts before `right`.
///
/// Invalid values come first and are equal among themselves. Else the left value's type decides, and the right one is
/// converted to it: numbers, characters and Qt's dates by value, the engine's date by its fields, all else as text. Digits
/// in texts have no value: "item10" comes before "item9".
bool isLess(const QVariant& left, const QVariant& right, const TextOrder& order);

} // namespace qelm::datamodels::proxy
