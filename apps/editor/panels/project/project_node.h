#pragma once

#include "file_kind.h"

#include <datamodels/simple_tree_model.h>

#include <QDateTime>
#include <QFileInfo>

namespace editor {

/// One file or folder of the project, as it was on disk when the tree was loaded.
class ProjectNode : public SimpleTreeModel::Node
{
public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        KindRole = Qt::UserRole + 1, ///< title of the kind
        SizeRole,                    ///< bytes, of a folder those of all files in it; `qint64`
        ModifiedRole,                ///< `QDateTime`, local time
        PathRole,                    ///< in the project, with slashes; the key of a node
        IconRole,
        SizeTextRole,
        ModifiedTextRole,
        IsFolderRole,
    };

    /// `path` is that in the project.
    ProjectNode(SimpleTreeModel& owner, const QFileInfo& file, const QString& path);

    QVariant data(int role) const override;

    FileKind kind() const { return m_kind; }
    const QString& path() const { return m_path; }
    qint64 size() const { return m_size; }
    /// What a folder contains; until it is told, 0.
    void setSize(qint64 size) { m_size = size; }

private:
    QString m_name;
    QString m_path;
    FileKind m_kind;
    qint64 m_size;
    QDateTime m_modified;
};

} // namespace editor
