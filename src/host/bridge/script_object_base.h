#pragma once

#include <host/base/host_export.h>

#include <QObject>
#include <QStringList>
#include <QVariant>

namespace qelm {

/// What every reflected object offers to QML besides its own members, for those whose names are known only at run time.
class DATAMODELS_HOST_API ScriptObjectBase : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The names of all properties and methods that the object has now, in order.
    Q_INVOKABLE virtual QStringList reflectedNames() const = 0;
    /// The value of a property; invalid for an unknown name.
    Q_INVOKABLE virtual QVariant reflectedValue(const QString& name) = 0;
    /// Sets a property; false if it refuses.
    Q_INVOKABLE virtual bool setReflectedValue(const QString& name, const QVariant& value) = 0;
    /// What is said of a property, by the names of the annotations: texts, numbers and ranges as such, others as true.
    Q_INVOKABLE virtual QVariantMap reflectedAnnotations(const QString& name) const = 0;
};

} // namespace qelm
