#include <datamodels/virtual_filesystem/virtual_filesystem_model.h>

#include <datamodels/virtual_filesystem/virtual_filesystem_model_impl.h>

#include <QVariant>

#include <utility>

namespace datamodels {

VirtualFilesystemModel::VirtualFilesystemModel(QObject* parent)
    : SimpleTreeModel(parent), m_impl(std::make_unique<Impl>(*this))
{
}

VirtualFilesystemModel::~VirtualFilesystemModel() = default;

int VirtualFilesystemModel::rowCount(const QModelIndex& parent) const
{
    m_impl->tryToAddMoreNodes(parent);
    return SimpleTreeModel::rowCount(parent);
}

QHash<int, QByteArray> VirtualFilesystemModel::roleNames() const
{
    QHash<int, QByteArray> names = SimpleTreeModel::roleNames();
    names.insert(FileName, "fileName");
    names.insert(FilePath, "filePath");
    names.insert(DisplayName, "displayName");
    names.insert(FileExtension, "fileExtension");
    names.insert(IsFile, "isFile");
    names.insert(FileInfo, "fileInfo");
    return names;
}

VirtualFilesystemModel::Node* VirtualFilesystemModel::addPath(const QString& path, QStringList& addedPaths,
                                                              const QString& displayName,
                                                              FilterAndQuery filterAndQuery) const
{
    return m_impl->addPath(path, addedPaths, displayName, std::move(filterAndQuery), false);
}

VirtualFilesystemModel::Node* VirtualFilesystemModel::addPathOnDemand(const QString& path, const QString& displayName,
                                                                      FilterAndQuery filterAndQuery) const
{
    QStringList dropped;
    return m_impl->addPath(path, dropped, displayName, std::move(filterAndQuery), true);
}

VirtualFilesystemModel::Node* VirtualFilesystemModel::nodeFromPath(const QString& path) const
{
    return m_impl->nodeFromPath(path);
}

QModelIndex VirtualFilesystemModel::indexFromPath(const QString& path) const
{
    return m_impl->indexFromPath(path);
}

void VirtualFilesystemModel::traverse(const std::function<bool(const QString&, Node*)>& function) const
{
    m_impl->traverse(function);
}

void VirtualFilesystemModel::doResetModel()
{
    m_impl->reset();
    SimpleTreeModel::doResetModel();
}

std::unique_ptr<VirtualFilesystemModel::Node> VirtualFilesystemModel::createNode(VirtualFilesystemModel& model,
                                                                                 QFileInfo info, QString displayName)
{
    return std::make_unique<Node>(model, std::move(info), std::move(displayName));
}

VirtualFilesystemModel::Node::Node(VirtualFilesystemModel& owner, QFileInfo info, QString displayName)
    : SimpleTreeModel::Node(owner), m_fileInfo(std::move(info)), m_displayName(std::move(displayName))
{
}

VirtualFilesystemModel::Node::~Node() = default;

QVariant VirtualFilesystemModel::Node::data(int role) const
{
    switch (role) {
    case FileName: return m_fileInfo.fileName();
    case FilePath: return m_fileInfo.absoluteFilePath();
    case DisplayName: return m_displayName;
    case FileExtension: return m_fileInfo.suffix();
    case IsFile: return m_fileInfo.isFile();
    case FileInfo: return QVariant::fromValue(m_fileInfo);
    default: return {};
    }
}

} // namespace datamodels
