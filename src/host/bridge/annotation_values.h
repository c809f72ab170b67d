#pragma once

#include <QVariantMap>

namespace zarn {
class BoundProperty;
}

namespace qelm {

class Variant;

/// An annotation as a value that QML can read. What a function says is asked of `subject`; without one (null) only what is
/// said of all is known. `true` for an annotation that says nothing but that it is there.
QVariant annotationValue(const Variant& annotation, const zarn::BoundProperty* subject);

/// What is said of a property, by the names of the annotations; of several of one name the last.
QVariantMap annotationValues(const zarn::BoundProperty& property);

} // namespace qelm
