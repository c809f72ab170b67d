#include <datamodels/qml_registration.h>
#include <host/registry/static_registrar.h>

#include <QCoreApplication>

namespace datamodels {

void registerQmlTypes(std::initializer_list<QmlType> rows)
{
    for (const QmlType& row : rows)
        row.perform(row);
}

LoadTimeQmlTypes::LoadTimeQmlTypes(std::initializer_list<QmlType> rows)
{
    if (QCoreApplication::instance()) {
        registerQmlTypes(rows);
        return;
    }
    for (const QmlType& row : rows)
        StaticRegistrar::RegistrarInternals::addDeferredRegistration([row] { row.perform(row); });
}

} // namespace datamodels
