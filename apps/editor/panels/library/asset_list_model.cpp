#include "asset_list_model.h"

#include "panels/texts.h"

#include <QDirIterator>

#include <algorithm>

namespace editor {
namespace {

constexpr int delay = 100; // milliseconds; what comes meanwhile is taken over together

// Never empty, since a group is named after it.
QString folderOf(const QString& path)
{
    const QString folder = path.section(QLatin1Char('/'), 0, -2);
    return folder.isEmpty() ? QStringLiteral("/") : folder;
}

QString extensionOf(const QString& path)
{
    const QString extension = QFileInfo(path).suffix();
    return extension.isEmpty() ? QStringLiteral("none") : extension;
}

} // namespace

AssetListModel::AssetListModel(const QString& directory, QObject* parent)
    : QAbstractListModel(parent), m_directory(directory)
{
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    connect(&m_delay, &QTimer::timeout, this, &AssetListModel::synchronise);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_delay, qOverload<>(&QTimer::start));
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_delay, qOverload<>(&QTimer::start));
    synchronise();
}

int AssetListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_assets.size());
}

QVariant AssetListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const Asset& asset = m_assets[static_cast<std::size_t>(index.row())];
    switch (role) {
    case NameRole:
        return asset.path.section(QLatin1Char('/'), -1);
    case Qt::DecorationRole:
    case IconRole:
        return QLatin1String(factsOf(asset.kind).icon);
    case KindRole:
        return QLatin1String(factsOf(asset.kind).title);
    case FolderRole:
        return folderOf(asset.path);
    case ExtensionRole:
        return extensionOf(asset.path);
    case SizeRole:
        return asset.size;
    case SizeTextRole:
        return shortSize(asset.size);
    case ModifiedRole:
        return asset.modified;
    case ModifiedTextRole:
        return asset.modified.toString(QStringLiteral("yyyy-MM-dd  HH:mm"));
    case PathRole:
    case KeyRole:
        return asset.path;
    case IsGroupRole:
        return false;
    default:
        return {};
    }
}

QHash<int, QByteArray> AssetListModel::roleNames() const
{
    return {{NameRole, "name"},
            {IconRole, "icon"},
            {KindRole, "kind"},
            {FolderRole, "folder"},
            {ExtensionRole, "extension"},
            {SizeRole, "size"},
            {SizeTextRole, "sizeText"},
            {ModifiedRole, "modified"},
            {ModifiedTextRole, "modifiedText"},
            {PathRole, "path"},
            {CountRole, "count"},
            {IsGroupRole, "isGroup"},
            {KeyRole, "key"}};
}

void AssetListModel::synchronise()
{
    const std::vector<Asset> found = read();
    removeOthersThan(found);

    // What is left is part of what was found, in the same order.
    for (std::size_t row = 0; row < found.size(); ++row) {
        const auto isNew = [&](std::size_t at) {
            return row == m_assets.size() || found[at].path != m_assets[row].path;
        };
        std::size_t end = row;
        while (end < found.size() && isNew(end))
            ++end;
        if (end > row) {
            beginInsertRows({}, static_cast<int>(row), static_cast<int>(end) - 1);
            m_assets.insert(m_assets.begin() + row, found.begin() + row, found.begin() + end);
            endInsertRows();
            row = end - 1;
        } else if (found[row].size != m_assets[row].size || found[row].modified != m_assets[row].modified) {
            m_assets[row] = found[row];
            const QModelIndex changed = index(static_cast<int>(row));
            Q_EMIT dataChanged(changed, changed, {SizeRole, SizeTextRole, ModifiedRole, ModifiedTextRole});
        }
    }
}

std::vector<AssetListModel::Asset> AssetListModel::read()
{
    std::vector<Asset> found;
    QStringList paths(m_directory);
    QDirIterator files(m_directory, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        const QFileInfo file = files.fileInfo();
        paths << file.filePath();
        if (file.isDir())
            continue;
        const QString path = file.filePath().mid(m_directory.size() + 1);
        found.push_back({path, kindOfFile(path), file.size(), file.lastModified()});
    }
    watch(paths);
    std::sort(found.begin(), found.end(), [](const Asset& a, const Asset& b) { return a.path < b.path; });
    return found;
}

// The system forgets what is deleted, also if it comes again.
void AssetListModel::watch(const QStringList& paths)
{
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    const QSet<QString> known(watched.begin(), watched.end());
    QStringList added;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(added),
                 [&known](const QString& path) { return !known.contains(path) && QFileInfo::exists(path); });
    if (!added.isEmpty())
        m_watcher.addPaths(added);
}

void AssetListModel::removeOthersThan(const std::vector<Asset>& found)
{
    const auto isGone = [&found](const Asset& asset) {
        return !std::binary_search(found.begin(), found.end(), asset,
                                   [](const Asset& a, const Asset& b) { return a.path < b.path; });
    };
    for (auto end = m_assets.end(); end != m_assets.begin();) {
        auto first = end;
        while (first != m_assets.begin() && isGone(*(first - 1)))
            --first;
        if (first == end) {
            --end;
            continue;
        }
        beginRemoveRows({}, static_cast<int>(first - m_assets.begin()),
                        static_cast<int>(end - m_assets.begin()) - 1);
        end = m_assets.erase(first, end);
        endRemoveRows();
    }
}

} // namespace editor
