#include <datamodels/filesystem/file_system_model.h>

#include <datamodels/filesystem/file_system_model_item.h>
#include <datamodels/model_scopes.h>
#include <host/base/debug.h>

#include <algorithm>
#include <utility>

namespace datamodels {
namespace {

enum Role
{
    IsDirectory = Qt::UserRole,
    Created,
    Modified,
    Extension,
    FullName,
    Path,
    AbsolutePath,
    Size
};

void report(const char* text)
{
    Ozy::DebugMessageHelper(Ozy::Priority::progress, "datamodels").message("%s", text);
}

} // namespace

IFileSystemModelPredicate::~IFileSystemModelPredicate() = default;
IFilePropertiesProvider::~IFilePropertiesProvider() = default;

FileSystemModel::FileSystemModel(qelm::IFileSystem& fileSystem, const std::string& path)
    : FileSystemModel(fileSystem,
                      std::make_unique<FileSystemModelItem>(*this, fileSystem.getFileInfo(path.c_str()), nullptr))
{
}

FileSystemModel::FileSystemModel(qelm::IFileSystem& fileSystem, std::unique_ptr<FileSystemModelItem> root)
    : m_fileSystem(fileSystem), m_root(std::move(root))
{
}

FileSystemModel::~FileSystemModel()
{
    m_job.cancel(true);
}

QModelIndex FileSystemModel::index(int row, int column, const QModelIndex& parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, 0, getItem(parent, false)->child(static_cast<std::size_t>(row)));
}

QModelIndex FileSystemModel::parent(const QModelIndex& child) const
{
    const FileSystemModelItem* item = getItem(child, true);
    if (!item)
        return {};
    const FileSystemModelItem* parentItem = item->parent();
    if (!parentItem || !parentItem->parent())
        return {};
    return createIndex(static_cast<int>(parentItem->selfIndex()), 0, const_cast<FileSystemModelItem*>(parentItem));
}

int FileSystemModel::rowCount(const QModelIndex& parent) const
{
    FileSystemModelItem* parentItem = getItem(parent, false);
    if (!OZY_ASSERT(parentItem))
        return 0;
    parentItem->populate(m_fileSystem, false, {});
    return static_cast<int>(parentItem->childCount());
}

int FileSystemModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant FileSystemModel::data(const QModelIndex& index, int role) const
{
    const FileSystemModelItem* item = getItem(index, true);
    if (!item)
        return {};
    switch (role) {
    case Qt::DisplayRole: return item->name();
    case IsDirectory: return item->isDirectory();
    case Created: return item->createdTime();
    case Modified: return item->modifiedTime();
    case Extension: return item->extension();
    case FullName: return item->fullName();
    case Path: return item->path();
    case AbsolutePath: return QString::fromStdString(m_fileSystem.absolutePath(item->fileInfo()->fullName()));
    case Size: return static_cast<quint64>(item->fileInfo()->size());
    default: return {};
    }
}

QHash<int, QByteArray> FileSystemModel::roleNames() const
{
    return {{Qt::DisplayRole, "display"}, {IsDirectory, "isDirectory"}, {Created, "created"},
            {Modified, "modified"},       {Extension, "extension"},     {FullName, "fullName"},
            {Path, "path"},               {AbsolutePath, "absolutePath"}, {Size, "size"}};
}

void FileSystemModel::asyncPopulate()
{
    using Job = Ozy::AsyncManager::Job;
    if (m_job.state() != Job::Idle)
        m_job.wait();
    Job job = Ozy::AsyncManager::async(0, [this](const Job& running) {
        report("FileSystemModel: async populating started\n");
        m_root->populate(m_fileSystem, true, [&running] { return running.state() == Job::Cancelled; });
        report("FileSystemModel: async populating finished\n");
        return true;
    });
    m_job.cancel(true);
    m_job = std::move(job);
}

void FileSystemModel::reset()
{
    m_job.cancel(true);
    std::unique_ptr<FileSystemModelItem> oldRoot; // goes last: its items are valid until the reset is over
    const ModelScopes::Reset scope(*this);
    oldRoot = std::move(m_root);
    m_root = oldRoot->createModelItem(*this, oldRoot->fileInfo(), nullptr);
}

bool FileSystemModel::addPredicate(PredicateType type, IFileSystemModelPredicate* predicate)
{
    return predicate && addPredicates(type, Predicates{predicate});
}

bool FileSystemModel::addPredicates(PredicateType type, const Predicates& predicates)
{
    bool isChanged = false;
    {
        const std::lock_guard lock(m_mutex);
        isChanged = addPredicates(type == Include ? m_includePredicates : m_excludePredicates, predicates);
    }
    if (isChanged)
        reset();
    return isChanged;
}

bool FileSystemModel::removePredicate(IFileSystemModelPredicate* predicate)
{
    OZY_ASSERT(predicate);
    return removePredicates(Predicates{predicate});
}

bool FileSystemModel::removePredicates(const Predicates& predicates)
{
    bool isChanged = false;
    {
        const std::lock_guard lock(m_mutex);
        isChanged = removePredicates(m_includePredicates, predicates);
        isChanged = removePredicates(m_excludePredicates, predicates) || isChanged;
    }
    if (isChanged)
        reset();
    return isChanged;
}

bool FileSystemModel::checkPredicates(const std::shared_ptr<qelm::IFileInfo>& info) const
{
    const std::lock_guard lock(m_mutex);
    // Intended: no include predicate lets nothing in.
    return !checkPredicates(m_excludePredicates, info) && checkPredicates(m_includePredicates, info);
}

void FileSystemModel::addPropertiesProvider(std::shared_ptr<IFilePropertiesProvider> provider)
{
    if (OZY_ASSERT(provider))
        m_propertiesProviders.push_back(std::move(provider));
}

std::string FileSystemModel::toRelative(const std::string& path)
{
    return m_fileSystem.relativePath(path.c_str());
}

FileSystemModelItem* FileSystemModel::getItem(const QModelIndex& index, bool invalidIsNull) const
{
    if (index.isValid())
        return static_cast<FileSystemModelItem*>(index.internalPointer());
    return invalidIsNull ? nullptr : m_root.get();
}

int FileSystemModel::enumeratedChildrenCount(const QModelIndex& index) const
{
    return static_cast<int>(getItem(index, false)->childCount());
}

bool FileSystemModel::addPredicates(Predicates& list, const Predicates& added)
{
    const std::size_t before = list.size();
    for (IFileSystemModelPredicate* predicate : added) {
        if (predicate && std::find(list.begin(), list.end(), predicate) == list.end())
            list.push_back(predicate);
    }
    return list.size() != before;
}

bool FileSystemModel::removePredicates(Predicates& list, const Predicates& removed)
{
    return std::erase_if(list, [&removed](IFileSystemModelPredicate* predicate) {
        return std::find(removed.begin(), removed.end(), predicate) != removed.end();
    });
}

bool FileSystemModel::checkPredicates(const Predicates& list, const std::shared_ptr<qelm::IFileInfo>& info)
{
    return std::any_of(list.begin(), list.end(),
                       [&info](const IFileSystemModelPredicate* predicate) { return predicate->accepts(info); });
}

} // namespace datamodels
