#pragma once

#include "json_writer.h"

#include <QJsonObject>
#include <QString>

namespace editor {

/// Fills a fresh object with what `toJson` wrote. What is not mentioned keeps the value that the class gives it.
///
/// Refused are properties and classes that there are not, values of another type or out of bounds, collections that are
/// too small or too large, and objects that lie too deep. Empty on success; else what is wrong and where, for the user
/// ("children[3].position.x: ..."), and the object is half filled.
QString fillFromJson(const QJsonObject& json, const zarn::ReflectedObject& object);

} // namespace editor
