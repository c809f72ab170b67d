#pragma once

#include <datamodels/simple_tree_model.h>

#include <QFileInfo>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace datamodels {

/// Chosen directories and files of the disk side by side, each with what lies beneath it; rows go when their paths do.
///
/// Roles: "fileName", "filePath" (absolute), "displayName", "fileExtension", "isFile", "fileInfo" (`QFileInfo`). Intended:
/// there is no value for `Qt::DisplayRole`, and "displayName" is empty unless a query or the top level gives one.
///
/// Signals: insertions as paths are added, and removals as they vanish. For each path of a subtree that has gone, the
/// deepest first, `pathDeleted` comes just ahead of the removal of its row; slots must not change the tree.
/// Intended: what comes or changes on the disk is not told. It shows after a reset and another `addPath`, and in
/// directories on demand that have not been opened.
/// Intended: a directory on demand is opened by the first `rowCount`, which announces the rows twice, one bracket in the
/// other; empty ones are announced, without rows, and read each time. A sort-filter proxy that opens a directory itself
/// shows its rows twice: open them ahead of it.
///
/// The host's `IFileSystemMonitor` is needed at construction; without one nothing vanishes, with an assertion. Links are
/// followed, save those to a directory that holds them; paths are told apart by their text.
/// Cost: a directory on demand that nobody opens costs one `QFileInfo`. Thread: GUI only, for the monitor as well.
class DATAMODELS_API VirtualFilesystemModel : public SimpleTreeModel
{
    Q_OBJECT

public:
    class Node;

    /// Which entries are kept, and what they are called. Either may be empty; on demand, a query needs a filter:
    /// without one the first opening throws `std::bad_function_call`.
    struct FilterAndQuery
    {
        std::function<bool(const QFileInfo&)> filter;
        std::function<QString(const QFileInfo&)> query;
    };

    enum Role
    {
        FileName = Qt::UserRole + 1,
        FilePath,
        DisplayName,
        FileExtension,
        IsFile,
        FileInfo
    };

    explicit VirtualFilesystemModel(QObject* parent = nullptr);
    ~VirtualFilesystemModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Adds a top-level row with all that lies beneath it, directories before files. Every path added goes to
    /// `addedPaths`. Without a display name it is that of the file. Intended: that of a directory is the last directory
    /// in the path, so it is the parent's unless the path ends in a separator. A path that does not exist has a row too;
    /// one that is added twice has two, of which the later one is found and vanishes.
    Node* addPath(const QString& path, QStringList& addedPaths, const QString& displayName, FilterAndQuery filterAndQuery) const;
    /// Adds the top-level row only; what lies beneath is read when it is asked for.
    Node* addPathOnDemand(const QString& path, const QString& displayName, FilterAndQuery filterAndQuery) const;

    /// By the absolute path as `QFileInfo` gives it; null and an invalid index for what is not known yet, or any more.
    Node* nodeFromPath(const QString& path) const;
    QModelIndex indexFromPath(const QString& path) const;
    /// Calls `function` for each known path, in no order, until it returns true.
    void traverse(const std::function<bool(const QString&, Node*)>& function) const;

    /// Empties the model and ends all watches, without a signal; `resetModel` does so with.
    void doResetModel() override;

Q_SIGNALS:
    void pathDeleted(QString path);

protected:
    /// Makes every row, so that a derived model can have nodes of its own.
    virtual std::unique_ptr<Node> createNode(VirtualFilesystemModel& model, QFileInfo info, QString displayName);

private:
    class Impl;

    std::unique_ptr<Impl> m_impl;
};

/// One path.
class DATAMODELS_API VirtualFilesystemModel::Node : public SimpleTreeModel::Node
{
public:
    Node(VirtualFilesystemModel& owner, QFileInfo info, QString displayName);
    ~Node() override;

    QVariant data(int role) const override;

    const QFileInfo& getFileInfo() const { return m_fileInfo; }
    const QString& getDisplayName() const { return m_displayName; }

private:
    friend class Impl;

    std::shared_ptr<FilterAndQuery> m_filterAndQuery; // one for all of an added path; null for none
    QFileInfo m_fileInfo;
    QString m_displayName;
    bool m_onDemand = false;
};

} // namespace datamodels
