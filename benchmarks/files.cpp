// File trees against Qt's and against bare calls of the system: reading all of a tree, reading one directory when its rows
// are asked for, heap, and taking a tree in for watching. 100000 files in 1000 directories, read before, so that no disk
// is waited for.
#include <support/comparison.h>

#include <datamodels/filesystem/file_system_model.h>
#include <datamodels/filesystem/file_system_model_item.h>
#include <datamodels/virtual_filesystem/virtual_filesystem_model.h>
#include <host/registry/instances.h>
#include <host/resources/disk_monitor.h>
#include <host/resources/local_file_system.h>
#include <host/resources/resource_modification_listener.h>

#include <KDirWatch>
#include <QApplication>
#include <QDateTime>
#include <QDirIterator>
#include <QEventLoop>
#include <QFile>
#include <QFileSystemModel>
#include <QTemporaryDir>

#include <cstddef>
#include <vector>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace bench;
using datamodels::VirtualFilesystemModel;

namespace {

constexpr QDir::Filters entries = QDir::AllEntries | QDir::NoDotAndDotDot;

/// Ten directories of a hundred with a hundred files each, and one of 10000 files.
struct Disk
{
    Disk()
    {
        for (int outer = 0; outer < 10; ++outer) {
            for (int inner = 0; inner < 100; ++inner)
                fill(QString("tree/dir_%1/sub_%2").arg(outer).arg(inner), 100);
        }
        fill("large", 10000);
    }
    void fill(const QString& name, int files)
    {
        QDir(directory.path()).mkpath(name);
        for (int file = 0; file < files; ++file) {
            QFile made(directory.path() + QString("/%1/asset_%2_AM.dds").arg(name).arg(file));
            made.open(QIODevice::WriteOnly);
        }
    }
    QString tree() const { return directory.path() + "/tree"; }
    QString large() const { return directory.path() + "/large"; }

    QTemporaryDir directory;
};

class Everything : public datamodels::IFileSystemModelPredicate
{
public:
    bool accepts(const std::shared_ptr<qelm::IFileInfo>&) const override { return true; }
};

class Model : public datamodels::FileSystemModel
{
public:
    explicit Model(qelm::IFileSystem& files, const QString& path)
        : FileSystemModel(files, path.toStdString()), m_files(files)
    {
        addPredicate(Include, &m_everything);
    }

    void readOnWorkers() { root().populate(m_files, true, {}); }
    void readHere() { readBelow(root()); }

private:
    datamodels::FileSystemModelItem& root() { return *getItem({}, false); }
    void readBelow(datamodels::FileSystemModelItem& item)
    {
        item.populate(m_files, false, {});
        for (std::size_t row = 0, count = item.childCount(); row < count; ++row) {
            if (item.child(row)->isDirectory())
                readBelow(*item.child(row));
        }
    }

    qelm::IFileSystem& m_files;
    Everything m_everything;
};

/// The least that names, sizes and times of a tree cost in one thread.
long long bareWalk(int directory)
{
    long long sum = 0;
    std::vector<char> buffer(32 * 1024);
    for (long filled; (filled = syscall(SYS_getdents64, directory, buffer.data(), buffer.size())) > 0;) {
        for (long offset = 0; offset < filled;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer.data() + offset);
            offset += entry->d_reclen;
            if (entry->d_name[0] == '.')
                continue;
            struct statx status;
            statx(directory, entry->d_name, AT_SYMLINK_NOFOLLOW | AT_STATX_DONT_SYNC,
                  STATX_SIZE | STATX_MTIME | STATX_BTIME, &status);
            sum += 1 + static_cast<long long>(status.stx_size);
            if (entry->d_type != DT_DIR)
                continue;
            const int below = openat(directory, entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            sum += bareWalk(below);
            close(below);
        }
    }
    return sum;
}

void bareWalkOf(const QString& path)
{
    const int directory = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    keep(bareWalk(directory));
    close(directory);
}

void iterate(const QString& path)
{
    QDirIterator iterator(path, entries, QDirIterator::Subdirectories);
    while (iterator.hasNext()) {
        iterator.next();
        keep(iterator.fileInfo().size() + iterator.fileInfo().lastModified().isValid());
    }
}

/// Fetches every directory of Qt's own model.
void fetchAll(QFileSystemModel& model, const QString& path)
{
    QEventLoop loop;
    int pending = 1;
    QObject::connect(&model, &QFileSystemModel::directoryLoaded, &loop, [&](const QString& loaded) {
        const QModelIndex index = model.index(loaded);
        for (int row = 0; row < model.rowCount(index); ++row) {
            const QModelIndex child = model.index(row, 0, index);
            if (model.isDir(child) && model.canFetchMore(child)) {
                ++pending;
                model.fetchMore(child);
            }
        }
        if (--pending == 0)
            loop.quit();
    });
    model.setOption(QFileSystemModel::DontUseCustomDirectoryIcons);
    model.setOption(QFileSystemModel::DontWatchForChanges);
    model.setRootPath(path);
    loop.exec();
}

std::function<Comparison::Timed()> fetching(const QString& path)
{
    return [path] {
        const auto model = std::make_shared<QFileSystemModel>();
        return [model, path] { fetchAll(*model, path); };
    };
}

std::function<Comparison::Timed()> reading(qelm::IFileSystem& files, const QString& path, void (Model::*read)())
{
    return [&files, path, read] {
        const auto model = std::make_shared<Model>(files, path);
        return [model, read] { ((*model).*read)(); };
    };
}

void compareWholeTrees(qelm::IFileSystem& files, const QString& path)
{
    const std::string job = "read 100000 files in 1000 directories, with size and times";
    Comparison(job + ", to QFileSystemModel")
        .add("QFileSystemModel, each directory fetched", fetching(path))
        .add("FileSystemModel, workers", reading(files, path, &Model::readOnWorkers));
    Comparison(job + ", to QDirIterator")
        .addPlain("QDirIterator, size and time", [path] { iterate(path); })
        .add("FileSystemModel, workers", reading(files, path, &Model::readOnWorkers));
    Comparison(job + ", to the system")
        .addPlain("getdents64 and statx, one thread", [path] { bareWalkOf(path); })
        .add("FileSystemModel, workers", reading(files, path, &Model::readOnWorkers))
        .add("FileSystemModel, one thread", reading(files, path, &Model::readHere));
    Comparison(job + ", to one thread")
        .add("FileSystemModel, one thread", reading(files, path, &Model::readHere))
        .add("FileSystemModel, workers", reading(files, path, &Model::readOnWorkers));
}

void compareSingleDirectories(qelm::IFileSystem& files, const Disk& disk)
{
    Comparison("count the rows of 100 directories of 100 files")
        .addPlain("QDir::entryInfoList",
                  [top = disk.tree() + "/dir_0/sub_%1"] {
                      for (int row = 0; row < 100; ++row)
                          keep(QDir(top.arg(row)).entryInfoList(entries).size());
                  })
        .add("FileSystemModel::rowCount", [&files, top = disk.tree() + "/dir_0"] {
            const auto model = std::make_shared<Model>(files, top);
            keep(model->rowCount());
            return [model] {
                for (int row = 0; row < 100; ++row)
                    keep(model->rowCount(model->index(row, 0)));
            };
        });
}

/// What a row of an opened directory is, without a model around.
class InfoNode : public SimpleTreeModel::Node
{
public:
    InfoNode(SimpleTreeModel& owner, QFileInfo info) : Node(owner), m_info(std::move(info)) {}

private:
    QFileInfo m_info;
    QString m_name;
};

void compareOnDemand(const QString& path)
{
    Comparison("open a directory of 10000 files on demand")
        .add("QDir::entryInfoList, and a node for each entry",
             [path] {
                 const auto model = std::make_shared<SimpleTreeModel>();
                 const auto nodes = std::make_shared<std::vector<std::unique_ptr<InfoNode>>>();
                 return [model, nodes, path] {
                     const QFileInfoList list = QDir(path).entryInfoList(
                         QDir::Files | QDir::AllDirs | QDir::NoDotAndDotDot, QDir::DirsFirst);
                     for (const QFileInfo& info : list)
                         nodes->push_back(std::make_unique<InfoNode>(*model, info));
                 };
             })
        .add("VirtualFilesystemModel::rowCount", [path] {
            const auto model = std::make_shared<VirtualFilesystemModel>();
            model->addPathOnDemand(path, "large", {});
            Ozy::FS::DiskMonitor::instance().finishWatching();
            return [model] { keep(model->rowCount(model->index(0, 0))); };
        });
}

double heapOfTree(qelm::IFileSystem& files, const QString& path)
{
    const double before = heapBytes();
    Model model(files, path);
    model.readHere();
    return heapBytes() - before;
}

double heapOfQtsTree(const QString& path)
{
    const double before = heapBytes();
    QFileSystemModel model;
    fetchAll(model, path);
    return heapBytes() - before;
}

void compareHeap(qelm::IFileSystem& files, const QString& path)
{
    Comparison("heap of 100000 files")
        .addQuantity("100 bytes a file", [] { return 100.0 * 101010; })
        .addQuantity("FileSystemModel", [&files, path] { return heapOfTree(files, path); })
        .addQuantity("QFileSystemModel", [path] { return heapOfQtsTree(path); });
}

void compareWatching(const QString& path)
{
    using Ozy::FS::DiskMonitor;
    static Ozy::ResourceModificationListener listener;
    const auto handle = [] {
        return std::shared_ptr<IFileSystemMonitor::Handle>(DiskMonitor::instance().createHandle(&listener));
    };
    Comparison("take in 1000 directories with 100000 files for watching")
        .add("KDirWatch::addDir, recursive with files",
             [path] {
                 const auto watch = std::make_shared<KDirWatch>();
                 return [watch, path] { watch->addDir(path, KDirWatch::WatchSubDirs | KDirWatch::WatchFiles); };
             })
        .add("DiskMonitor, until all is watched",
             [path, handle] {
                 return [path, watching = handle()] {
                     watching->watch(path.toStdString());
                     DiskMonitor::instance().finishWatching();
                 };
             })
        .add("DiskMonitor, as long as the caller is held", [path, handle] {
            return [path, watching = handle()] { watching->watch(path.toStdString()); };
        });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    instances::set<IFileSystemMonitor>(&Ozy::FS::DiskMonitor::instance());
    const Disk disk;
    qelm::LocalFileSystem files(disk.tree().toStdString());

    compareWholeTrees(files, disk.tree());
    compareSingleDirectories(files, disk);
    compareOnDemand(disk.large());
    compareHeap(files, disk.tree());
    compareWatching(disk.tree());
    const int result = runAll(argc, argv);
    instances::set<IFileSystemMonitor>(nullptr);
    return result;
}
