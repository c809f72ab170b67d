#pragma once

#include <datamodels/virtual_filesystem/virtual_filesystem_model.h>
#include <host/resources/file_system_monitor.h>
#include <host/resources/resource_modification_listener.h>

#include <QFileInfo>
#include <QHash>

#include <vector>

namespace datamodels {

/// The table of paths of a `VirtualFilesystemModel`, and how its rows come and go.
class VirtualFilesystemModel::Impl final : public Ozy::ResourceModificationListener
{
public:
    explicit Impl(VirtualFilesystemModel& model);
    ~Impl() override;

    void onResourceModified(std::string_view directory, std::string_view name, unsigned action) override;

    Node* addPath(const QString& path, QStringList& addedPaths, const QString& displayName, FilterAndQuery filterAndQuery,
                  bool onDemand);
    void tryToAddMoreNodes(const QModelIndex& index);
    Node* nodeFromPath(const QString& path) const;
    QModelIndex indexFromPath(const QString& path) const;
    void traverse(const std::function<bool(const QString&, Node*)>& function) const;
    void reset();

private:
    using Shared = std::shared_ptr<FilterAndQuery>;

    Node* insertRootNode(const QFileInfo& info, const QString& name, const Shared& shared);
    /// `walked` are the real paths of the directories on the way, which links may not lead into again.
    void recursiveAdd(Node* node, QStringList& addedPaths, const Shared& shared, QStringList& walked);
    void addDirectories(Node* node, QStringList& addedPaths, const Shared& shared, QStringList& walked);
    void addFiles(Node* node, QStringList& addedPaths, const Shared& shared);
    std::vector<Node*> insertNodes(Node* parent, const QFileInfoList& childPaths, const Shared& shared);
    std::unique_ptr<Node> createNode(const QFileInfo& info, const QString& displayName);
    void recursiveNodeDeletion(SimpleTreeModel::Node* node);

    VirtualFilesystemModel* m_model;
    std::unique_ptr<IFileSystemMonitor::Handle> m_monitorHandle;
    QHash<QString, Node*> m_nodes; // by absolute path
};

} // namespace datamodels
