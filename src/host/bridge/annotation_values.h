#pragma once

#include <QVariantMap>

namespace zarn {
class BoundProperty;
}

namespace qelm {

/// What is said of a property, in values that QML can read, by the names of the annotations.
QVariantMap annotationValues(const zarn::BoundProperty& property);

} // namespace qelm
