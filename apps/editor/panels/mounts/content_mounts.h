#pragma once

#include <datamodels/composite_model.h>

namespace editor {

class AssetListModel;
class LibraryGroups;
class ProjectTreeModel;

/// All that the editor knows of a project's content as one tree: the tree of its files under "project", its
/// assets by kind under "library", and as a list under "content/files".
///
/// Roles: those of `ProjectNode` and `AssetListModel`, by name. All rows have "name", "icon" and "key", the
/// way to a row from the top. The library and the list follow the disk. Thread: GUI.
class ContentMounts : public CompositeModel
{
    Q_OBJECT

public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        IconRole = Qt::UserRole,
        KeyRole,
    };

    explicit ContentMounts(const QString& directory);
    ~ContentMounts() override;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// Looks at the disk now.
    void reload();

private:
    QString m_directory;
    std::shared_ptr<ProjectTreeModel> m_tree;
    std::shared_ptr<AssetListModel> m_assets;
    std::shared_ptr<LibraryGroups> m_groups;
};

} // namespace editor
