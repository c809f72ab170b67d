#include <support/signal_text.h>

#include <support/paths.h>

#include <QAbstractItemModel>
#include <QVector>

#include <map>

namespace {

using Formatter = QString (*)(void** arguments);

template <class T>
const T& argument(void** arguments, int number)
{
    return *static_cast<const T*>(arguments[number]);
}

QString rangeText(const char* word, void** arguments)
{
    return QStringLiteral("%1 %2 [%3..%4]")
        .arg(QLatin1String(word), pathOf(argument<QModelIndex>(arguments, 1)))
        .arg(argument<int>(arguments, 2))
        .arg(argument<int>(arguments, 3));
}

QString moveText(const char* word, void** arguments)
{
    return rangeText(word, arguments) + QStringLiteral(" to %1 [%2]")
                                            .arg(pathOf(argument<QModelIndex>(arguments, 4)))
                                            .arg(argument<int>(arguments, 5));
}

QString layoutText(const char* word, void** arguments)
{
    QStringList parents;
    for (const QPersistentModelIndex& parent : argument<QList<QPersistentModelIndex>>(arguments, 1))
        parents.append(pathOf(parent));

    QString text = QLatin1String(word);
    if (!parents.isEmpty())
        text += ' ' + parents.join(QStringLiteral(", "));
    switch (argument<QAbstractItemModel::LayoutChangeHint>(arguments, 2)) {
    case QAbstractItemModel::NoLayoutChangeHint:
        break;
    case QAbstractItemModel::VerticalSortHint:
        text += QStringLiteral(" sorted rows");
        break;
    case QAbstractItemModel::HorizontalSortHint:
        text += QStringLiteral(" sorted columns");
        break;
    }
    return text;
}

QString dataText(void** arguments)
{
    const auto& topLeft = argument<QModelIndex>(arguments, 1);
    const auto& bottomRight = argument<QModelIndex>(arguments, 2);
    QStringList roles;
    for (const int role : argument<QVector<int>>(arguments, 3))
        roles.append(QString::number(role));

    QString text = QStringLiteral("changed ") + pathOf(topLeft);
    if (bottomRight != topLeft)
        text += QStringLiteral(" .. ") + pathOf(bottomRight);
    if (!roles.isEmpty())
        text += QStringLiteral(" roles ") + roles.join(',');
    return text;
}

QString headerText(void** arguments)
{
    const bool horizontal = argument<Qt::Orientation>(arguments, 1) == Qt::Horizontal;
    return QStringLiteral("header %1 [%2..%3]")
        .arg(QLatin1String(horizontal ? "horizontal" : "vertical"))
        .arg(argument<int>(arguments, 2))
        .arg(argument<int>(arguments, 3));
}

const std::map<QByteArray, Formatter>& itemModelFormatters()
{
    static const std::map<QByteArray, Formatter> formatters{
        {"rowsAboutToBeInserted", [](void** a) { return rangeText("inserting", a); }},
        {"rowsInserted", [](void** a) { return rangeText("inserted", a); }},
        {"rowsAboutToBeRemoved", [](void** a) { return rangeText("removing", a); }},
        {"rowsRemoved", [](void** a) { return rangeText("removed", a); }},
        {"rowsAboutToBeMoved", [](void** a) { return moveText("moving", a); }},
        {"rowsMoved", [](void** a) { return moveText("moved", a); }},
        {"columnsAboutToBeInserted", [](void** a) { return rangeText("inserting columns", a); }},
        {"columnsInserted", [](void** a) { return rangeText("inserted columns", a); }},
        {"columnsAboutToBeRemoved", [](void** a) { return rangeText("removing columns", a); }},
        {"columnsRemoved", [](void** a) { return rangeText("removed columns", a); }},
        {"columnsAboutToBeMoved", [](void** a) { return moveText("moving columns", a); }},
        {"columnsMoved", [](void** a) { return moveText("moved columns", a); }},
        {"modelAboutToBeReset", [](void**) { return QStringLiteral("resetting"); }},
        {"modelReset", [](void**) { return QStringLiteral("reset"); }},
        {"layoutAboutToBeChanged", [](void** a) { return layoutText("layout changing", a); }},
        {"layoutChanged", [](void** a) { return layoutText("layout changed", a); }},
        {"dataChanged", dataText},
        {"headerDataChanged", headerText},
    };
    return formatters;
}

QString valueText(const QVariant& value)
{
    const int type = value.userType();
    if (type == QMetaType::UnknownType)
        return QStringLiteral("invalid");
    if (type == QMetaType::QString)
        return '"' + value.toString() + '"';
    if (type == QMetaType::QModelIndex || type == QMetaType::QPersistentModelIndex)
        return pathOf(value.toModelIndex());
    if (QMetaType::typeFlags(type) & QMetaType::PointerToQObject) {
        const auto* object = value.value<QObject*>();
        return object ? QString::fromLatin1(object->metaObject()->className()) : QStringLiteral("null");
    }
    if (type == QMetaType::QStringList) {
        QStringList texts = value.toStringList();
        return texts.isEmpty() ? QStringLiteral("[]")
                               : QStringLiteral("[\"%1\"]").arg(texts.join(QStringLiteral("\", \"")));
    }
    if (value.canConvert<QString>())
        return value.toString();
    return QString::fromLatin1(value.typeName());
}

QString argumentText(int type, const QByteArray& typeName, const void* value)
{
    if (type == QMetaType::UnknownType)
        return QString::fromLatin1(typeName);
    return valueText(type == QMetaType::QVariant ? *static_cast<const QVariant*>(value)
                                                 : QVariant(type, value));
}

} // namespace

QString signalText(const QMetaMethod& signal, void** arguments)
{
    if (signal.enclosingMetaObject() == &QAbstractItemModel::staticMetaObject) {
        const auto formatter = itemModelFormatters().find(signal.name());
        if (formatter != itemModelFormatters().end())
            return formatter->second(arguments);
    }

    const QList<QByteArray> typeNames = signal.parameterTypes();
    QStringList texts;
    for (int i = 0; i < signal.parameterCount(); ++i)
        texts.append(argumentText(signal.parameterType(i), typeNames[i], arguments[i + 1]));
    return QStringLiteral("%1(%2)").arg(QString::fromLatin1(signal.name()), texts.join(QStringLiteral(", ")));
}
