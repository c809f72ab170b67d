#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <stdexcept>
#include <string>

/// A directory of the test's own on the real disk, which goes with the object. Paths are relative to it; what cannot be
/// done throws.
class DiskFolder
{
public:
    enum Size
    {
        Small,
        Large ///< in memory where there is room, for ten thousands of files that a disk takes its time to delete
    };

    explicit DiskFolder(Size size = Small)
        : m_directory((size == Large && QFileInfo("/dev/shm").isWritable() ? "/dev/shm" : QDir::tempPath()) + "/files-XXXXXX")
    {
    }

    /// The absolute path of a name, or of the folder itself.
    QString path(const QString& name = {}) const
    {
        const QString top = QDir(m_directory.path()).canonicalPath();
        return name.isEmpty() ? top : top + "/" + name;
    }
    std::string bytes(const QString& name = {}) const { return path(name).toStdString(); }

    void makeDirectory(const QString& name) const { check(QDir().mkpath(path(name)), name); }
    /// Makes the directories on the way as well.
    void write(const QString& name, const QByteArray& text = {}) const
    {
        makeDirectory(name.contains('/') ? name.section('/', 0, -2) : QString());
        QFile file(path(name));
        check(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size(), name);
    }
    /// Files "file_0" to the last in each of the directories "dir_0" to the last.
    void writeMany(int directories, int filesEach) const
    {
        for (int directory = 0; directory < directories; ++directory) {
            makeDirectory(QString("dir_%1").arg(directory));
            for (int file = 0; file < filesEach; ++file)
                write(QString("dir_%1/file_%2").arg(directory).arg(file));
        }
    }
    void link(const QString& target, const QString& name) const { check(QFile::link(target, path(name)), name); }
    void rename(const QString& from, const QString& to) const { check(::rename(bytes(from).c_str(), bytes(to).c_str()) == 0, from); }
    void remove(const QString& name) const { check(QFile::remove(path(name)), name); }
    /// Runs a shell script in the folder while this very program is stopped, so that it can react to nothing of it.
    void runWhileStopped(const QString& script) const
    {
        const QString program = QString("trap 'kill -CONT %1' EXIT; kill -STOP %1; cd '%2' && { %3; }")
                                    .arg(QCoreApplication::applicationPid())
                                    .arg(path(), script);
        check(QProcess::execute("/bin/sh", {"-c", program}) == 0, script);
    }
    void removeTree(const QString& name) const { check(QDir(path(name)).removeRecursively(), name); }

    /// A script that makes more events in a directory than the system keeps, and leaves nothing.
    static QString flood(const QString& directory)
    {
        return QString("(cd %1 && seq -f flood_%.0f 1 50000 | xargs touch && seq -f flood_%.0f 1 50000 | xargs rm)").arg(directory);
    }

private:
    static void check(bool isDone, const QString& name)
    {
        if (!isDone)
            throw std::runtime_error("disk refuses " + name.toStdString());
    }

    QTemporaryDir m_directory;
};
