#pragma once

#include <host/reflection/reflected_object.h>

#include <QByteArray>

#include <optional>

namespace editor {

/// How deep objects may lie in each other in a file.
constexpr int deepestObject = 32;

/// A reflected object as JSON: its class, then what can be set, in the order of declaration, with the objects and
/// collections that its values are. Each object in a collection has a line of its own, and says its class; for a value
/// the property does. What follows from other values, methods and null pointers are left out. Numbers read back as they
/// were.
///
/// Nothing if objects lie too deep in each other, as when one contains itself.
std::optional<QByteArray> toJson(const zarn::ReflectedObject& object);

/// The same without the rows of the outliner below it, but with their number.
QByteArray ownJson(const zarn::ReflectedObject& object);

/// The last part of a class's name.
QString shortClassName(const zarn::MetaObject& metaObject);

} // namespace editor
