#pragma once

#include <datamodels/datamodels_export.h>

#include <QtQml/qqmlprivate.h>

#include <initializer_list>
#include <type_traits>

namespace datamodels {

/// One QML type to be registered: a line of a table. Make it with `creatable` or `uncreatable`. The texts must be
/// literals: they are kept as pointers.
struct QmlType
{
    void (*perform)(const QmlType& row);
    const char* uri;
    const char* name;
};

namespace Detail {

template <class T>
QQmlPrivate::RegisterType qmlRegistration(const QmlType& row)
{
    const QByteArray className = T::staticMetaObject.className();
    const QByteArray pointerName = className + '*';
    const QByteArray listName = "QQmlListProperty<" + className + '>';

    QQmlPrivate::RegisterType type{};
    type.version = 0;
    type.typeId = qRegisterNormalizedMetaType<T*>(pointerName);
    type.listId = qRegisterNormalizedMetaType<QQmlListProperty<T>>(listName);
    type.uri = row.uri;
    type.elementName = row.name;
    type.metaObject = &T::staticMetaObject;
    type.parserStatusCast = -1;
    type.valueSourceCast = -1;
    type.valueInterceptorCast = -1;
    return type;
}

template <class T>
void registerCreatable(const QmlType& row)
{
    QQmlPrivate::RegisterType type = qmlRegistration<T>(row);
    type.objectSize = sizeof(QQmlPrivate::QQmlElement<T>);
    type.create = QQmlPrivate::createInto<T>;
    type.versionMajor = 1;
    type.parserStatusCast = QQmlPrivate::StaticCastSelector<T, QQmlParserStatus>::cast();
    QQmlPrivate::qmlregister(QQmlPrivate::TypeRegistration, &type);
}

template <class T>
void registerUncreatable(const QmlType& row)
{
    QQmlPrivate::RegisterType type = qmlRegistration<T>(row);
    QQmlPrivate::qmlregister(QQmlPrivate::TypeRegistration, &type);
}

} // namespace Detail

/// A type that QML can write as an element, version 1.0 of `uri`. QML deletes what it creates.
template <class T>
constexpr QmlType creatable(const char* uri, const char* name)
{
    return {&Detail::registerCreatable<T>, uri, name};
}

/// A type that QML can hold and use, but has no name for.
template <class T>
constexpr QmlType uncreatable()
{
    return {&Detail::registerUncreatable<T>, nullptr, nullptr};
}

/// Registers the rows now, in their order. A row that QML refuses stays unknown to QML; nothing else happens.
DATAMODELS_API void registerQmlTypes(std::initializer_list<QmlType> rows);

/// A file-scope object that registers its rows when its library is loaded, or, while there is no application object,
/// hands them one by one to the host's registrar. One object per library keeps the order independent of the linker.
/// Thread: the one that loads the library.
class DATAMODELS_API LoadTimeQmlTypes
{
public:
    LoadTimeQmlTypes(std::initializer_list<QmlType> rows);
};

} // namespace datamodels
