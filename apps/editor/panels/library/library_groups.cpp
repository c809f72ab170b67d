#include "library_groups.h"

#include "asset_list_model.h"

namespace editor {

LibraryGroups::LibraryGroups(AssetListModel& assets)
{
    setSharedRoles({AssetListModel::KindRole, AssetListModel::FolderRole, AssetListModel::SizeRole,
                    AssetListModel::SizeTextRole, AssetListModel::ModifiedRole,
                    AssetListModel::ModifiedTextRole});
    setGroupProperty(AssetListModel::IsGroupRole, true);
    setSourceModel(&assets);
    setBy(ByKind);
}

QVariant LibraryGroups::data(const QModelIndex& index, int role) const
{
    const bool isGroup = index.isValid() && !index.parent().isValid();
    if (isGroup && role == AssetListModel::KeyRole)
        return QStringLiteral("group ") + index.data().toString();
    if (!isGroup || role != AssetListModel::IconRole)
        return GroupByProxyModel::data(index, role);
    // The library names an icon of its host for a folder; the editor has its own.
    const QString icon = index.data(Qt::DecorationRole).toString();
    return icon.contains(QLatin1Char('/')) ? QStringLiteral("folder") : icon;
}

void LibraryGroups::setBy(int by)
{
    if (m_by == by || by < ByKind || by > ByExtension)
        return;
    m_by = by;
    switch (by) {
    case ByKind:
        setRole(AssetListModel::KindRole, "Type");
        break; // by which a group has the icon of its members
    case ByFolder:
        setRole(AssetListModel::FolderRole, "folder");
        break;
    default:
        setRole(AssetListModel::ExtensionRole, "extension");
        break;
    }
    Q_EMIT byChanged();
}

} // namespace editor
