#include "content_mounts.h"

#include "panels/library/asset_list_model.h"
#include "panels/library/library_groups.h"
#include "panels/project/project_tree_model.h"
#include "resetting_proxy.h"

namespace editor {

ContentMounts::ContentMounts(const QString& directory)
    : m_directory(directory)
    , m_tree(std::make_shared<ProjectTreeModel>())
    , m_assets(std::make_shared<AssetListModel>(directory))
    , m_groups(std::make_shared<LibraryGroups>(*m_assets))
{
    // One by one, so that each gets the number that it has in `Role`.
    mapRoles(this, {{NameRole, "name"}});
    mapRoles(this, {{IconRole, "icon"}});
    mapRoles(this, {{KeyRole, "key"}});

    m_tree->load(directory);
    addSubmodel("project", m_tree);
    addSubmodel("library", std::make_shared<ResettingProxy>(*m_groups));
    addSubmodel("content/files", std::make_shared<ResettingProxy>(*m_assets));
    setData(index(0, 0), QStringLiteral("folder-tree"), IconRole);
    setData(index(1, 0), QStringLiteral("library"), IconRole);
    setData(index(2, 0), QStringLiteral("folder"), IconRole);
    setData(index(0, 0, index(2, 0)), QStringLiteral("layout"), IconRole);
}

ContentMounts::~ContentMounts() = default;

QVariant ContentMounts::data(const QModelIndex& index, int role) const
{
    if (role != KeyRole)
        return CompositeModel::data(index, role);
    QString key;
    for (QModelIndex row = index; row.isValid(); row = row.parent())
        key.prepend(QLatin1Char('/') + row.data().toString());
    return key;
}

void ContentMounts::reload()
{
    m_tree->load(m_directory);
    m_assets->synchronise();
}

} // namespace editor
