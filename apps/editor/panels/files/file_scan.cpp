#include "file_scan.h"

#include "panels/texts.h"

#include <QFile>

#include <utility>

namespace editor {

namespace {

// The workers read ahead; this goes through what they read, and so is done when they are.
void walk(const QAbstractItemModel& model, const QModelIndex& parent, const Ozy::AsyncManager::Job& job)
{
    for (int row = 0; job.state() == Ozy::AsyncManager::Job::Running && row < model.rowCount(parent); ++row)
        walk(model, model.index(row, 0, parent), job);
}

} // namespace

bool FileScan::Counts::accepts(const std::shared_ptr<qelm::IFileInfo>& info) const
{
    ++(info->isDirectory() ? directories : files);
    return true;
}

FileScan::FileScan(QObject* parent) : QObject(parent)
{
    m_ticks.setInterval(100);
    connect(&m_ticks, &QTimer::timeout, this, &FileScan::progressed);
}

FileScan::~FileScan()
{
    m_walk.cancel(true);
}

void FileScan::start(const QString& directory)
{
    using Job = Ozy::AsyncManager::Job;

    if (m_isRunning)
        cancel();
    const std::unique_ptr<qelm::LocalFileSystem> formerDisk = std::move(m_disk);
    const std::unique_ptr<datamodels::FileSystemModel> former = std::move(m_model);
    if (former)
        former->reset(); // whoever searches it stops
    const std::string path = QFile::encodeName(directory).toStdString();
    m_disk = std::make_unique<qelm::LocalFileSystem>(path);
    m_model = std::make_unique<datamodels::FileSystemModel>(*m_disk, path);
    m_counts.directories = m_counts.files = 0;
    m_model->addPredicate(datamodels::FileSystemModel::Include, &m_counts);
    m_directory = directory;
    Q_EMIT modelChanged();

    m_isRunning = true;
    m_isComplete = false;
    m_clock.start();
    m_ticks.start();
    m_model->asyncPopulate();
    m_walk = Ozy::AsyncManager::async(0, [model = m_model.get()](const Job& job) { walk(*model, QModelIndex(), job); });
    m_walkStates = m_walk.connectStateChanged([this](Job::State state) {
        if (state == Job::Ended)
            finish(true);
    });
    Q_EMIT progressed();
}

void FileScan::cancel()
{
    if (!m_isRunning)
        return;
    m_walkStates.disconnect();
    m_walk.cancel(true);
    m_model->reset();
    finish(false);
}

void FileScan::finish(bool isComplete)
{
    m_took = m_clock.elapsed();
    m_ticks.stop();
    m_isRunning = false;
    m_isComplete = isComplete;
    Q_EMIT progressed();
}

QString FileScan::progress() const
{
    const int found = directories() + files();
    const qint64 time = std::max<qint64>(1, m_isRunning ? m_clock.elapsed() : m_took);
    const QString state = m_isRunning ? tr("Reading") : m_isComplete ? tr("Read") : tr("Cancelled after");
    return tr("%1 %2 and %3, %L4 a second")
        .arg(state, counted(directories(), "folder", "folders"), counted(files(), "file", "files"))
        .arg(found * 1000LL / time);
}

} // namespace editor
