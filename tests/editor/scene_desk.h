#pragma once

#include "desk.h"

#include <panels/scene/level_actor.h>
#include <panels/scene/scene_panel.h>

/// A desk with the panel "Scene" on a small level:
///
///     Quay/           Crate  Barrel  Crane/(none)
///     Lamps/          North lamp  South lamp  East lamp
///     Start
///     Ferry           three points
///     Winter/         disabled: Stall
class SceneDesk : public Desk
{
public:
    static const QByteArray level;

    explicit SceneDesk(const QByteArray& text = level);

    QString scenePath() const { return m_project.filePath("levels/quay/scene.json"); }
    QByteArray sceneText() const;
    void writeScene(const QByteArray& text) const { m_project.write("levels/quay/scene.json", text); }

    editor::ScenePanel& scene() const { return panel<editor::ScenePanel>(); }
    /// The first object of a name, below the level.
    editor::LevelObject& object(const QString& name) const;
    template <class T>
    T& objectAs(const QString& name) const
    {
        return dynamic_cast<T&>(object(name));
    }

    QQuickItem& row(const QString& name) const { return item("row-" + name); }
    void open(const QString& name) { click(arrowOf(name)); }
    void select(const QString& name, Qt::KeyboardModifiers modifiers = {});
    void pressButton(const QString& row, const QString& button, Qt::KeyboardModifiers modifiers = {});
    QQuickItem& buttonOf(const QString& row, const QString& button) const;
    bool hasButton(const QString& row, const QString& button) const;
    QPointF placeOf(const QString& name) const;
    /// Where a place of the level, in metres, is on the map.
    QPointF onMap(const QPointF& metres) const;
    /// Names of the selected rows, from the top.
    QStringList selected() const;
    QStringList steps() const;

private:
    QQuickItem& arrowOf(const QString& name) const;
};
