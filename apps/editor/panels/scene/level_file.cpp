#include "level_file.h"

#include "json_reader.h"

#include <host/reflection/cast.h>

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

namespace editor {
namespace {

const QString tooDeep = QStringLiteral("Objects lie deeper than %1 in each other").arg(deepestObject);

LevelFile refused(const QString& error)
{
    return {nullptr, error};
}

} // namespace

LevelFile LevelFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return refused(file.errorString());
    if (file.size() > largest)
        return refused(QStringLiteral("It is larger than %1 MB").arg(largest >> 20));
    return parse(file.readAll());
}

LevelFile LevelFile::parse(const QByteArray& text)
{
    QJsonParseError fault;
    const QJsonObject json = QJsonDocument::fromJson(text, &fault).object();
    if (fault.error != QJsonParseError::NoError)
        return refused(
            QStringLiteral("Line %1: %2").arg(text.left(fault.offset).count('\n') + 1).arg(fault.errorString()));
    if (json.value(QLatin1String("format")).toString() != QLatin1String("level scene"))
        return refused(QStringLiteral("It is no scene of a level"));
    if (json.value(QLatin1String("version")) != QJsonValue(version))
        return refused(QStringLiteral("It has version %1, and this editor reads version %2")
                           .arg(json.value(QLatin1String("version")).toVariant().toString()).arg(version));
    if (!json.value(QLatin1String("scene")).isObject())
        return refused(QStringLiteral("There is no scene in it"));

    LevelFile file{std::make_shared<Level>(), {}};
    file.error = fillFromJson(json.value(QLatin1String("scene")).toObject(), zarn::reflect(*file.level));
    return file.error.isEmpty() ? file : refused(file.error);
}

QByteArray LevelFile::text(Level& level)
{
    const std::optional<QByteArray> scene = toJson(zarn::reflect(level));
    if (!scene)
        return {};
    return "{\"format\": \"level scene\", \"version\": " + QByteArray::number(version) + ", \"scene\":\n" + *scene
           + "}\n";
}

QString LevelFile::write(const QString& path, Level& level)
{
    const QByteArray text = LevelFile::text(level);
    if (text.isEmpty())
        return tooDeep;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        return file.errorString();
    return {};
}

} // namespace editor
