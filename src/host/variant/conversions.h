#pragma once

#include <host/variant/variant.h>

#include <string>

namespace qelm::Conversions {

// The rules, one family a source file. All leave the target alone on failure.

bool isNumber(Kind kind);
bool isText(Kind kind);

/// Writes a number or text, made of a number or text, to a value of the given type.
bool basicToBasic(const MetaType& type, void* value, const Variant& source);

bool toQt(Variant& target, const Variant& source);
bool fromQt(Variant& target, const Variant& source);

/// Makes an element of a sequence out of a value: true if it is, or becomes, of the element's type.
bool convertElement(Variant& element, const MetaType& type);

bool pointerToPointer(Variant& target, const Variant& source);
bool sequenceToSequence(Variant& target, const Variant& source);

/// What was added for two types.
bool added(Variant& target, const Variant& source);
/// Turns the address of an object into that of its base, or returns false if that was not declared.
bool castAddress(const void*& address, const std::type_info& from, const std::type_info& to);

} // namespace qelm::Conversions
