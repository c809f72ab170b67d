#pragma once

#include "scene_node.h"

#include <host/reflection/reflected_object.h>

#include <QAbstractListModel>

#include <vector>

namespace editor {

/// The objects of a scene as an indented list: each one is followed by its children, with their depth as a
/// role.
///
/// Roles: "name" (the display role), "icon", "colour", "level", "isEnabled". The rows follow the reflection's
/// notifications: an object comes and goes with all that is below it in one range.
/// The scene must outlive it. Thread: GUI. Cost: a change of structure is linear in the rows behind it.
class SceneListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        IconRole = Qt::UserRole + 1,
        ColourRole,
        LevelRole,
        IsEnabledRole,
    };

    explicit SceneListModel(SceneNode& root, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Null out of range.
    SceneNode* nodeAt(int row) const;
    /// -1 for an object that is not in the scene.
    int rowOf(const SceneNode* node) const;
    /// The row of the object that has this one as a child; -1 for the root.
    int parentRow(int row) const;

private:
    struct Row
    {
        SceneNode* node;
        int level;
        std::vector<ryk::ScopedConnection> connections;
    };

    Row makeRow(SceneNode& node, int level);
    void appendTo(std::vector<Row>& rows, SceneNode& node, int level);
    /// The row behind the last one below `row`.
    int endOf(int row) const;
    int childRow(int parent, std::size_t child) const;
    void insertChildren(SceneNode& parent, std::size_t first, std::size_t count);
    void removeChildren(SceneNode& parent, std::size_t first, std::size_t count);
    void tell(const SceneNode& node, Role role);

    std::vector<Row> m_rows;
};

} // namespace editor
