#pragma once

#include <datamodels/datamodels_export.h>
#include <host/reflection/bound_property.h>

#include <QObject>

/// Gives QML one function that calls a reflected method without arguments.
///
/// The result is dropped. What the method throws passes through, and so does `zarn::GenericFunctionError` for a method
/// that wants arguments. On an invalid method nothing happens. Thread: GUI only.
class DATAMODELS_API MethodProxy : public QObject
{
    Q_OBJECT

public:
    MethodProxy(zarn::BoundProperty method, QObject* parent);
    ~MethodProxy() override;

    Q_INVOKABLE void invoke();

private:
    zarn::BoundProperty m_method;
};
