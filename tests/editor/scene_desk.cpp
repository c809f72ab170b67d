#include "scene_desk.h"

#include <QtTest>

const QByteArray SceneDesk::level = R"({"format": "level scene", "version": 1, "scene":
{"class": "Level", "_objectName": "Quay", "width": 100, "height": 100, "children": [
  {"class": "Group", "_objectName": "Quay", "children": [
    {"class": "Actor", "_objectName": "Crate", "position": {"x": 10, "y": 20}, "model": "models/crate.mesh", "scale": 1.5,
     "mobility": "Movable", "tags": ["prop"], "components": [{"class": "Collider"}, {"class": "Buoyancy"}]},
    {"class": "Actor", "_objectName": "Barrel", "position": {"x": 30, "y": 20}, "model": "models/barrel.mesh",
     "components": [{"class": "Collider"}]},
    {"class": "Actor", "_objectName": "Crane", "position": {"x": 50, "y": 20}}]},
  {"class": "Group", "_objectName": "Lamps", "children": [
    {"class": "Light", "_objectName": "North lamp", "position": {"x": 50, "y": 90}, "range": 20},
    {"class": "Light", "_objectName": "South lamp", "position": {"x": 50, "y": 10}, "range": 20, "castsShadows": false},
    {"class": "Light", "_objectName": "East lamp", "position": {"x": 90, "y": 50}, "range": 8, "colour": "#a8c8ff"}]},
  {"class": "SpawnPoint", "_objectName": "Start", "position": {"x": 70, "y": 70}, "crew": 2},
  {"class": "Path", "_objectName": "Ferry", "points": [
    {"class": "PathPoint"}, {"class": "PathPoint", "wait": 5}, {"class": "PathPoint"}]},
  {"class": "Group", "_objectName": "Winter", "_isEnabled": false, "children": [
    {"class": "Actor", "_objectName": "Stall", "model": "models/stall.mesh"}]}]}}
)";

namespace {

void collect(const QQuickItem& parent, const QString& name, QList<QQuickItem*>& found)
{
    for (QQuickItem* child : parent.childItems()) {
        if (child->objectName() == name)
            found << child;
        collect(*child, name, found);
    }
}

} // namespace

SceneDesk::SceneDesk(const QByteArray& text)
    : Desk("scene", [&text](const SampleProject& project) {
        project.write("levels/quay/scene.json", text);
        project.write("models/crate.mesh", 10);
    })
{
}

QByteArray SceneDesk::sceneText() const
{
    QFile file(scenePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

editor::LevelObject& SceneDesk::object(const QString& name) const
{
    editor::LevelObject* found = nullptr;
    editor::Level& level = scene().document()->level();
    editor::visitObjects(level, [&](editor::LevelObject& object) {
        if (!found && &object != &level && object.name == name.toStdString())
            found = &object;
    });
    if (!found)
        qFatal("There is no object \"%s\"", qPrintable(name));
    return *found;
}

void SceneDesk::select(const QString& name, Qt::KeyboardModifiers modifiers)
{
    QQuickItem& target = row(name);
    clickAt(target, {target.width() / 2, target.height() / 2}, modifiers);
}

void SceneDesk::pressButton(const QString& name, const QString& button, Qt::KeyboardModifiers modifiers)
{
    click(buttonOf(name, button), modifiers);
}

QQuickItem& SceneDesk::buttonOf(const QString& name, const QString& button) const
{
    QList<QQuickItem*> found;
    collect(row(name), "button-" + button, found);
    if (found.isEmpty())
        qFatal("The row \"%s\" has no button \"%s\"", qPrintable(name), qPrintable(button));
    return *found.constFirst();
}

QPointF SceneDesk::placeOf(const QString& name) const
{
    const editor::Vector& place = *object(name).place();
    return {place.x, place.y};
}

QPointF SceneDesk::onMap(const QPointF& metres) const
{
    QPointF place;
    QMetaObject::invokeMethod(&item("map"), "toItem", Q_RETURN_ARG(QPointF, place), Q_ARG(QPointF, metres));
    return place;
}

bool SceneDesk::hasButton(const QString& name, const QString& button) const
{
    QList<QQuickItem*> found;
    collect(row(name), "button-" + button, found);
    return !found.isEmpty();
}

QStringList SceneDesk::selected() const
{
    QStringList names;
    for (const QQuickItem* one : rowItems("tree")) {
        if (one->property("isSelected").toBool())
            names << one->objectName().mid(4);
    }
    return names;
}

QStringList SceneDesk::steps() const
{
    QStringList lines;
    for (const QQuickItem* one : rowItems("steps"))
        lines << reads(*one);
    return lines;
}

QQuickItem& SceneDesk::arrowOf(const QString& name) const
{
    QList<QQuickItem*> found;
    collect(row(name), "arrow", found);
    return *found.constFirst();
}
