#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/filesystem/i_file_properties_provider.h>
#include <datamodels/filesystem/i_file_system_model_predicate.h>
#include <host/jobs/async_manager.h>
#include <host/resources/file_system.h>

#include <QAbstractItemModel>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

struct ModelScopes;

namespace datamodels {

class FileSystemModelItem;

/// A directory of a file system as a tree of one column, in natural order of the names.
///
/// Roles: "display" (name), "isDirectory", "created" and "modified" (`QDateTime` in UTC), "extension", "fullName",
/// "path" (the full name up to its last separator), "absolutePath" (asked for each time), "size" (bytes, unsigned 64
/// bit). Entries show when an include predicate accepts them and no exclude predicate does. Intended: without include
/// predicates there are no rows.
///
/// A directory is read when its rows are first asked for, or ahead of that by `asyncPopulate`, and never again until
/// `reset`; nothing watches the disk. Rows come without signals, since nobody has been told of their absence; the only
/// signals are those of a reset. `rowCount` waits for a worker that is just reading that directory.
///
/// Owned by others: the file system, and the predicates while they are in a list; a derived class that owns some takes
/// them out in its destructor, since workers ask them until then. An index holds a pointer to its item
/// and lives until the next reset. Bad input: a path that does not exist is a root without rows.
/// Thread: GUI, and reading from a search. Workers run predicates, providers and the file system.
/// Cost: about 360 bytes an entry; texts and dates are converted when a role first asks for them.
class DATAMODELS_API FileSystemModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum PredicateType
    {
        Include = 0,
        Exclude
    };

    FileSystemModel(qelm::IFileSystem& fileSystem, const std::string& path);
    /// Ends the job and waits for it.
    ~FileSystemModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Reads the whole tree on workers; when it was called before, that job is waited for first.
    void asyncPopulate();
    /// Ends the job and starts with an unread root, inside of one reset. A directory of which an ended job has read a part
    /// shows that part until then.
    void reset();

    /// The lists keep an order and each predicate once; null is refused. A change resets. True if anything changed.
    bool addPredicate(PredicateType type, IFileSystemModelPredicate* predicate);
    bool addPredicates(PredicateType type, const std::vector<IFileSystemModelPredicate*>& predicates);
    /// From both lists.
    bool removePredicate(IFileSystemModelPredicate* predicate);
    bool removePredicates(const std::vector<IFileSystemModelPredicate*>& predicates);
    /// Whether the predicates let an entry in. Threads: any.
    bool checkPredicates(const std::shared_ptr<qelm::IFileInfo>& info) const;

    /// The first provider that has properties for a file wins. Add before the first rows are asked for.
    void addPropertiesProvider(std::shared_ptr<IFilePropertiesProvider> provider);
    const std::vector<std::shared_ptr<IFilePropertiesProvider>>& getPropertiesProviders() const
    {
        return m_propertiesProviders;
    }

    std::string toRelative(const std::string& path);

protected:
    /// For models with items of their own kind, whose `createModelItem` makes more of them.
    FileSystemModel(qelm::IFileSystem& fileSystem, std::unique_ptr<FileSystemModelItem> root);

    /// The item of a valid index; for the invalid one null, or the root.
    FileSystemModelItem* getItem(const QModelIndex& index, bool invalidIsNull) const;
    /// The rows that have been read so far; reads nothing.
    int enumeratedChildrenCount(const QModelIndex& index) const;

private:
    friend struct ::ModelScopes;
    using Predicates = std::vector<IFileSystemModelPredicate*>;

    static bool addPredicates(Predicates& list, const Predicates& added);
    static bool removePredicates(Predicates& list, const Predicates& removed);
    static bool checkPredicates(const Predicates& list, const std::shared_ptr<qelm::IFileInfo>& info);

    Predicates m_includePredicates;
    Predicates m_excludePredicates;
    qelm::IFileSystem& m_fileSystem;
    std::unique_ptr<FileSystemModelItem> m_root;
    std::vector<std::shared_ptr<IFilePropertiesProvider>> m_propertiesProviders;
    mutable std::mutex m_mutex; // guards the predicates; taken inside of an item's, never the other way round
    Ozy::AsyncManager::Job m_job;
};

} // namespace datamodels
