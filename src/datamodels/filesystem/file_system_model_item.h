#pragma once

#include <datamodels/datamodels_export.h>
#include <host/reflection/reflected_object.h>
#include <host/resources/file_info.h>

#include <QDateTime>
#include <QString>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace qelm {
class IFileSystem;
}

namespace datamodels {

class FileSystemModel;

/// A node of a `FileSystemModel`. It owns its children, which stay as they are once the directory has been read.
///
/// Threads: any may populate and read. A lock of the item is held for the whole reading of its directory, so whoever
/// asks for the children meanwhile waits; no two items are locked at once.
class DATAMODELS_API FileSystemModelItem
{
public:
    static constexpr std::size_t INVALID_INDEX = ~std::size_t(0);

    /// A null info makes an empty file.
    FileSystemModelItem(FileSystemModel& model, std::shared_ptr<qelm::IFileInfo> info, FileSystemModelItem* parent);
    virtual ~FileSystemModelItem();
    /// Makes the item of an entry, with the properties that the providers of the model have for it.
    virtual std::unique_ptr<FileSystemModelItem>
    createModelItem(FileSystemModel& model, std::shared_ptr<qelm::IFileInfo> info, FileSystemModelItem* parent) const;
    Q_DISABLE_COPY_MOVE(FileSystemModelItem)

    /// Reads this directory unless that was done before; with `async` the whole tree below it, on workers, and returns
    /// when they are done. This item's `createModelItem` makes all the others. `stop` may be empty; when it gives true,
    /// what is being read stays as far as it was, and counts as read.
    void populate(qelm::IFileSystem& fileSystem, bool async, const std::function<bool()>& stop);

    /// For a populated directory; otherwise, and past the end, an assertion and null.
    FileSystemModelItem* child(std::size_t index);
    const FileSystemModelItem* child(std::size_t index) const;
    std::size_t childCount() const;
    /// `INVALID_INDEX` for what is no child of this item.
    std::size_t childIndex(const FileSystemModelItem* child) const;
    std::size_t selfIndex() const;
    FileSystemModelItem* parent() { return m_parent; }
    const FileSystemModelItem* parent() const { return m_parent; }

    bool isDirectory() const { return m_directory; }
    const QString& name() const { return shown().name; }
    const QDateTime& createdTime() const { return shown().createdTime; }
    const QDateTime& modifiedTime() const { return shown().modifiedTime; }
    const QString& extension() const { return shown().extension; }
    const QString& fullName() const { return shown().fullName; }
    /// The full name up to its last separator; all of it if there is none.
    const QString& path() const { return shown().path; }
    const std::shared_ptr<qelm::IFileInfo>& fileInfo() const { return m_fileInfo; }
    /// Invalid without properties.
    zarn::ReflectedObject properties() const;

private:
    /// What roles show of the info, which stays as it is: it can be converted at any time, on any thread.
    struct Shown
    {
        QString name;
        QDateTime createdTime;
        QDateTime modifiedTime;
        QString extension;
        QString fullName;
        QString path;
    };
    using Children = std::vector<std::unique_ptr<FileSystemModelItem>>;

    void populateJob(FileSystemModelItem* factory, qelm::IFileSystem& fileSystem, const std::function<bool()>& stop);
    Children readChildren(FileSystemModelItem* factory, qelm::IFileSystem& fileSystem, const std::function<bool()>& stop);
    void populateTree(qelm::IFileSystem& fileSystem, const std::function<bool()>& stop);
    const Shown& shown() const;
    std::unique_ptr<Shown> fillCache() const;

    FileSystemModel& m_model;
    FileSystemModelItem* m_parent;
    Children m_children;
    mutable std::mutex m_mutex; // guards m_children and m_populated
    const bool m_directory;
    bool m_populated = false;
    std::uint32_t m_row = 0; // among the siblings, set before they can be seen
    std::shared_ptr<qelm::IFileInfo> m_fileInfo;
    mutable std::atomic<const Shown*> m_shown = nullptr;
    std::unique_ptr<zarn::ReflectedObject> m_properties; // few files have any
};

} // namespace datamodels
