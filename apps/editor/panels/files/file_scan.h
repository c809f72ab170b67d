#pragma once

#include <datamodels/filesystem/file_system_model.h>
#include <host/jobs/async_manager.h>
#include <host/resources/local_file_system.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

namespace editor {

/// Reads a whole directory on workers, and counts what they find while they do.
///
/// The tree that it fills is there from the start and may be looked at and searched meanwhile; a directory that the
/// workers have not reached is read when its rows are asked for. A scan that is cancelled leaves an unread tree.
///
/// Signals: `progressed` ten times a second and at the end; `modelChanged` when another directory is scanned, after the
/// tree before has been reset and ahead of its end. Thread: GUI.
class FileScan : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString directory READ directory NOTIFY modelChanged)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY progressed)
    Q_PROPERTY(QString progress READ progress NOTIFY progressed)

public:
    explicit FileScan(QObject* parent = nullptr);
    ~FileScan() override;

    /// Scans a directory of the disk, in place of the one before.
    void start(const QString& directory);
    Q_INVOKABLE void cancel();

    const QString& directory() const { return m_directory; }
    /// Null before the first scan.
    datamodels::FileSystemModel* model() const { return m_model.get(); }
    bool isRunning() const { return m_isRunning; }
    int directories() const { return m_counts.directories; }
    int files() const { return m_counts.files; }
    /// A line for people: what has been found, and how fast.
    QString progress() const;

Q_SIGNALS:
    void progressed();
    void modelChanged();

private:
    /// Lets everything in, and counts it.
    class Counts final : public datamodels::IFileSystemModelPredicate
    {
    public:
        bool accepts(const std::shared_ptr<qelm::IFileInfo>& info) const override;

        mutable std::atomic<int> directories{0};
        mutable std::atomic<int> files{0};
    };

    void finish(bool isComplete);

    QString m_directory;
    Counts m_counts;
    std::unique_ptr<qelm::LocalFileSystem> m_disk;
    std::unique_ptr<datamodels::FileSystemModel> m_model;
    Ozy::AsyncManager::Job m_walk;
    ryk::ScopedConnection m_walkStates;
    QTimer m_ticks;
    QElapsedTimer m_clock;
    qint64 m_took = 0; // milliseconds
    bool m_isRunning = false;
    bool m_isComplete = false;
};

} // namespace editor
