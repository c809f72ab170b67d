#pragma once

#include "panels/project/file_kind.h"

#include <datamodels/scene_roles.h>

#include <QAbstractListModel>
#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>

#include <vector>

namespace editor {

/// The files of a project as a flat list in the order of their paths, which follows the disk.
///
/// Roles: "name" (the display role), "icon", "kind", "folder", "extension", "size",
/// "sizeText", "modified", "modifiedText", "path"; for proxies that group the rows also the names "count",
/// "isGroup" and "key". Signals of `synchronise`, in order: removals from the back, then insertions and
/// changes from the front, rows that are neighbours together. Hidden files and linked folders are left out.
/// A moment after something has changed below the directory it synchronises itself. Thread: GUI. Cost: one
/// visit of every file; a watch of the system for each file and folder.
class AssetListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role
    {
        NameRole = Qt::DisplayRole,
        IconRole = Qt::UserRole + 1, ///< also as the decoration role
        KindRole,                    ///< title of the kind
        FolderRole,                  ///< path of the folder in the project, with slashes, or "/"
        ExtensionRole,               ///< without its dot, or "none"
        SizeRole,                    ///< bytes
        SizeTextRole,                ///< see `shortSize`
        ModifiedRole,                ///< `QDateTime`, local time
        ModifiedTextRole,
        PathRole,                      ///< in the project, with slashes; tells assets apart
        IsGroupRole,                   ///< false
        KeyRole,                       ///< the path
        CountRole = SceneRoles::Count, ///< invalid
    };

    explicit AssetListModel(const QString& directory, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QString& directory() const { return m_directory; }

    /// Takes over what has changed on the disk. A directory that cannot be read is empty.
    void synchronise();

private:
    struct Asset
    {
        QString path;
        FileKind kind;
        qint64 size;
        QDateTime modified;
    };

    std::vector<Asset> read();
    void watch(const QStringList& paths);
    void removeOthersThan(const std::vector<Asset>& found);

    QString m_directory;
    std::vector<Asset> m_assets; // by path
    QFileSystemWatcher m_watcher;
    QTimer m_delay;
};

} // namespace editor
