#pragma once

#include "project_node.h"

#include <array>

namespace editor {

/// The files of a project as a tree of `ProjectNode`.
///
/// Roles: "name", "kind", "size", "modified", "path", "icon", "sizeText", "modifiedText", "isFolder" (`ProjectNode`).
/// Hidden files and symbolic links to folders are left out: a link could lead back to where it stands.
/// Thread: GUI.
class ProjectTreeModel : public SimpleTreeModel
{
    Q_OBJECT

public:
    explicit ProjectTreeModel(QObject* parent = nullptr);

    QHash<int, QByteArray> roleNames() const override;

    /// Forgets the tree and reads the directory anew. One that cannot be read gives an empty tree.
    /// Cost: one visit of every file; blocks meanwhile.
    void load(const QString& directory);

    /// How many nodes there are of each kind, in the order of `FileKind`.
    int count(FileKind kind) const { return m_counts[static_cast<std::size_t>(kind)]; }
    int totalCount() const;

private:
    qint64 fill(Node& parent, const QString& directory, const QString& path);

    std::array<int, static_cast<std::size_t>(FileKind::Document) + 1> m_counts{};
};

} // namespace editor
