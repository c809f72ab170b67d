#include <datamodels/virtual_filesystem/virtual_filesystem_model_impl.h>

#include <datamodels/host_service.h>
#include <host/base/debug.h>
#include <host/base/stack_tracker.h>

#include <QDirIterator>
#include <QFile>
#include <QScopedValueRollback>

#include <algorithm>
#include <string>
#include <utility>

namespace datamodels {
namespace {

using Entry = Ozy::StackTracker::Scope;

std::unique_ptr<IFileSystemMonitor::Handle> newHandle(Ozy::ResourceModificationListener* listener)
{
    auto* monitor = hostService<IFileSystemMonitor>();
    return monitor ? monitor->createHandle(listener) : nullptr;
}

/// Whether a link leads to one of the directories, or above one: whoever follows it comes by again.
bool leadsBack(const QString& target, const QStringList& walked)
{
    return std::any_of(walked.begin(), walked.end(), [prefix = target.endsWith('/') ? target : target + '/'](const QString& directory) {
        return (directory + '/').startsWith(prefix);
    });
}

} // namespace

VirtualFilesystemModel::Impl::Impl(VirtualFilesystemModel& model) : m_model(&model), m_monitorHandle(newHandle(this)) {}

VirtualFilesystemModel::Impl::~Impl() = default;

VirtualFilesystemModel::Node* VirtualFilesystemModel::Impl::addPath(const QString& path, QStringList& addedPaths,
                                                                    const QString& displayName,
                                                                    FilterAndQuery filterAndQuery, bool onDemand)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::addPath");
    const bool isSet = filterAndQuery.filter || filterAndQuery.query;
    const Shared shared = isSet ? std::make_shared<FilterAndQuery>(std::move(filterAndQuery)) : nullptr;
    const QFileInfo info(path);
    // Intended: without a trailing separator this is the name of the directory above.
    const QString ownName = info.isDir() ? info.dir().dirName() : info.fileName();

    Node* node = insertRootNode(info, displayName.isEmpty() ? ownName : displayName, shared);
    addedPaths.append(info.absoluteFilePath());
    if (onDemand) {
        node->m_onDemand = true;
    } else {
        QStringList walked{info.canonicalFilePath()};
        recursiveAdd(node, addedPaths, shared, walked);
    }
    if (m_monitorHandle)
        m_monitorHandle->watch(QFile::encodeName(info.absoluteFilePath()).toStdString());
    return node;
}

VirtualFilesystemModel::Node* VirtualFilesystemModel::Impl::insertRootNode(const QFileInfo& info, const QString& name,
                                                                           const Shared& shared)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::insertRootNode");
    std::unique_ptr<Node> made = createNode(info, name);
    Node* node = made.get();
    SimpleTreeModel::Node& root = m_model->root();
    std::vector<std::unique_ptr<SimpleTreeModel::Node>> nodes;
    nodes.push_back(std::move(made));
    SimpleTreeModel::insertNodes(root, root.children().size(), std::move(nodes));
    node->m_filterAndQuery = shared;
    m_nodes.insert(info.absoluteFilePath(), node);
    return node;
}

void VirtualFilesystemModel::Impl::recursiveAdd(Node* node, QStringList& addedPaths, const Shared& shared,
                                                QStringList& walked)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::recursiveAdd");
    addDirectories(node, addedPaths, shared, walked);
    addFiles(node, addedPaths, shared);
}

void VirtualFilesystemModel::Impl::addDirectories(Node* node, QStringList& addedPaths, const Shared& shared,
                                                  QStringList& walked)
{
    QDirIterator directories(node->m_fileInfo.absoluteFilePath(), QDir::AllDirs | QDir::NoDotAndDotDot);
    while (directories.hasNext()) {
        directories.next();
        const QFileInfo info = directories.fileInfo();
        if (shared && shared->filter && !shared->filter(info))
            continue;
        const std::vector<Node*> inserted = insertNodes(node, {info}, shared);
        addedPaths.append(info.absoluteFilePath());
        const QString place = info.isSymLink() ? info.canonicalFilePath() : walked.last() + '/' + info.fileName();
        if (info.isSymLink() && leadsBack(place, walked))
            continue;
        walked.append(place);
        recursiveAdd(inserted.front(), addedPaths, shared, walked);
        walked.removeLast();
    }
}

void VirtualFilesystemModel::Impl::addFiles(Node* node, QStringList& addedPaths, const Shared& shared)
{
    QFileInfoList files;
    QDirIterator entries(node->m_fileInfo.absoluteFilePath(), QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        if (shared && shared->filter && !shared->filter(info))
            continue;
        addedPaths.append(info.absoluteFilePath());
        files.append(info);
    }
    insertNodes(node, files, shared);
}

std::vector<VirtualFilesystemModel::Node*>
VirtualFilesystemModel::Impl::insertNodes(Node* parent, const QFileInfoList& childPaths, const Shared& shared)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::insertNodes");
    std::vector<Node*> insertedNodes;
    std::vector<std::unique_ptr<SimpleTreeModel::Node>> nodes;
    insertedNodes.reserve(static_cast<std::size_t>(childPaths.size()));
    nodes.reserve(static_cast<std::size_t>(childPaths.size()));
    for (const QFileInfo& info : childPaths) {
        std::unique_ptr<Node> node = createNode(info, shared && shared->query ? shared->query(info) : QString());
        insertedNodes.push_back(node.get());
        nodes.push_back(std::move(node));
    }
    SimpleTreeModel::insertNodes(*parent, parent->children().size(), std::move(nodes));

    for (Node* node : insertedNodes) {
        node->m_filterAndQuery = shared;
        node->m_onDemand = parent->m_onDemand;
    }
    OZY_ASSERT_AS("childPaths.size() == insertedNodes.size()",
                  static_cast<std::size_t>(childPaths.size()) == insertedNodes.size());
    m_nodes.reserve(m_nodes.size() + childPaths.size());
    for (Node* node : insertedNodes)
        m_nodes.insert(node->m_fileInfo.absoluteFilePath(), node);
    return insertedNodes;
}

std::unique_ptr<VirtualFilesystemModel::Node> VirtualFilesystemModel::Impl::createNode(const QFileInfo& info,
                                                                                       const QString& displayName)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::createNode");
    return m_model->createNode(*m_model, info, displayName);
}

void VirtualFilesystemModel::Impl::tryToAddMoreNodes(const QModelIndex& index)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::tryToAddMoreNodes");
    if (!index.isValid())
        return;
    // Intended: one for the process, so that nothing is opened while rows are being announced, in any model.
    static int expansions = 0;
    if (expansions > 0)
        return;
    const QScopedValueRollback guard(expansions, expansions + 1);
    if (m_model->SimpleTreeModel::rowCount(index) != 0)
        return;
    auto* node = dynamic_cast<Node*>(m_model->nodeFromIndex(index, true));
    if (!node || !node->m_onDemand || node->m_fileInfo.isFile())
        return;

    QFileInfoList list = QDir(node->m_fileInfo.absoluteFilePath())
                             .entryInfoList(QDir::Files | QDir::AllDirs | QDir::NoDotAndDotDot, QDir::DirsFirst);
    if (const Shared shared = node->m_filterAndQuery) {
        // Intended: a query without a filter throws here.
        const auto isLeftOut = [&shared](const QFileInfo& info) { return !shared->filter(info); };
        list.erase(std::remove_if(list.begin(), list.end(), isLeftOut), list.end());
    }

    // Intended: the insertion brackets the same rows once more, and a directory without entries announces none.
    m_model->beginInsertRows(index, 0, list.size() - 1);
    insertNodes(node, list, node->m_filterAndQuery);
    m_model->endInsertRows();
}

void VirtualFilesystemModel::Impl::onResourceModified(std::string_view directory, std::string_view name, unsigned action)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::onResourceModified");
    if (action != Removed && action != RenamedFrom)
        return;
    const QFileInfo info(QFile::decodeName(std::string(directory).append(name).c_str()));
    if (Node* node = nodeFromPath(info.absoluteFilePath()))
        recursiveNodeDeletion(node);
}

void VirtualFilesystemModel::Impl::recursiveNodeDeletion(SimpleTreeModel::Node* node)
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::recursiveNodeDeletion");
    for (std::size_t row = node->children().size(); row > 0; --row)
        recursiveNodeDeletion(&node->child(row - 1));
    const QString path = static_cast<Node*>(node)->m_fileInfo.absoluteFilePath();
    Q_EMIT m_model->pathDeleted(path);
    m_nodes.remove(path);
    node->parent()->removeChild(node);
}

VirtualFilesystemModel::Node* VirtualFilesystemModel::Impl::nodeFromPath(const QString& path) const
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::nodeFromPath");
    return m_nodes.value(path);
}

QModelIndex VirtualFilesystemModel::Impl::indexFromPath(const QString& path) const
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::indexFromPath");
    return m_model->indexFromNode(nodeFromPath(path));
}

void VirtualFilesystemModel::Impl::traverse(const std::function<bool(const QString&, Node*)>& function) const
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::traverse");
    for (auto node = m_nodes.begin(); node != m_nodes.end(); ++node) {
        if (function(node.key(), node.value()))
            return;
    }
}

void VirtualFilesystemModel::Impl::reset()
{
    const Entry entry("datamodels::VirtualFilesystemModel::Impl::reset");
    m_nodes.clear();
    m_monitorHandle = newHandle(this);
}

} // namespace datamodels
