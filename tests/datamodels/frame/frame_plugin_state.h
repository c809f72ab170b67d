#pragma once

#include <QLibrary>
#include <QMetaType>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QVector>

#include <memory>

/// What a process knows of the test plug-in's types, read from outside.
namespace FramePlugin {

inline bool load()
{
    return QLibrary(QStringLiteral(FRAME_PLUGIN)).load();
}

inline void registerEditorTypes()
{
    const auto function = QLibrary(QStringLiteral(FRAME_PLUGIN)).resolve("registerFrameEditorTypes");
    Q_ASSERT(function);
    function();
}

/// The ids of the names that the six load-time rows register, in the order of the table; 0 for an unknown
/// name.
inline QVector<int> loadTimeMetaTypes()
{
    return {
        QMetaType::type("frame::Composer*"),    QMetaType::type("QQmlListProperty<frame::Composer>"),
        QMetaType::type("frame::Channels*"),    QMetaType::type("QQmlListProperty<frame::Channels>"),
        QMetaType::type("frame::Info*"),        QMetaType::type("QQmlListProperty<frame::Info>"),
        QMetaType::type("frame::FlatInfo*"),    QMetaType::type("QQmlListProperty<frame::FlatInfo>"),
        QMetaType::type("frame::Image*"),       QMetaType::type("QQmlListProperty<frame::Image>"),
        QMetaType::type("frame::SimpleImage*"), QMetaType::type("QQmlListProperty<frame::SimpleImage>"),
    };
}

/// QML's numbers of the load-time rows that have a name, counted from the first; -1 for an unknown type.
inline QVector<int> loadTimeQmlTypes()
{
    const int first = qmlTypeId("Frame.Misc", 1, 0, "Composer");
    QVector<int> numbers;
    for (const char* name : {"Info", "FlatInfo", "Image", "SimpleImage"}) {
        const int id = qmlTypeId("Frame.Preview", 1, 0, name);
        numbers.append(first < 0 || id < 0 ? -1 : id - first);
    }
    return numbers;
}

inline bool isStrictlyIncreasing(const QVector<int>& numbers)
{
    return std::adjacent_find(numbers.begin(), numbers.end(), std::greater_equal<int>()) == numbers.end();
}

/// Makes the object that a QML text describes; null, with the error in `error`, when that cannot be.
inline std::unique_ptr<QObject> create(QQmlEngine& engine, const QByteArray& qml, QString* error = nullptr)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    std::unique_ptr<QObject> object(component.create());
    if (error)
        *error = component.errors().isEmpty() ? QString() : component.errors().constFirst().description();
    return object;
}

} // namespace FramePlugin
