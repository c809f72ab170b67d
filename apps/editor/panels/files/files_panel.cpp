#include "files_panel.h"

#include "panels/project/file_kind.h"
#include "panels/texts.h"

#include <host/resources/multi_file_system.h>

#include <QDir>

namespace editor {

using datamodels::VirtualFilesystemModel;

FilesPanel::FilesPanel(const PanelContext& context)
    : m_content(context.content)
    , m_selection(&m_files)
    , m_rootsPane(m_files, m_selection, VirtualFilesystemModel::FilePath)
{
    connect(m_rootsPane.rows(), &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { readAhead(first, last); }, Qt::QueuedConnection);
    addRoots();
    m_maps.load();
    connect(&m_scan, &FileScan::modelChanged, this, [this] {
        m_search.setSource(m_scan.model());
        Q_EMIT placeChanged();
    });
    connect(&m_scan, &FileScan::progressed, this, &Panel::statusChanged);
    connect(&m_search, &FileSearch::stateChanged, this, &Panel::statusChanged);
    connect(&m_maps, &QAbstractItemModel::dataChanged, this, &FilesPanel::mapsChanged);
    connect(&m_maps, &QAbstractItemModel::modelReset, this, &FilesPanel::mapsChanged);
    scanProject();
}

FilesPanel::~FilesPanel()
{
    m_search.setSource(nullptr);
}

void FilesPanel::addRoots()
{
    const QFileInfoList entries = QDir(m_content).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    const auto all = [](const QFileInfo&) { return true; };
    const auto name = [](const QFileInfo& info) { return info.fileName(); };
    for (const QFileInfo& entry : entries)
        m_files.addPathOnDemand(entry.absoluteFilePath(), entry.fileName(), {all, name});
    readAhead(0, m_rootsPane.rows()->rowCount() - 1);
}

// A view that asks a row whether it opens must not hear in that very moment that it does.
void FilesPanel::readAhead(int firstRow, int lastRow)
{
    for (int row = firstRow; row <= lastRow; ++row)
        m_files.rowCount(m_rootsPane.rows()->mapToSource(m_rootsPane.rows()->index(row, 0)));
}

QString FilesPanel::status() const
{
    QString text = m_scan.progress();
    if (m_search.hasWords())
        text += QStringLiteral("; ") + counted(m_search.count(), "result", "results");
    return text;
}

QString FilesPanel::searchedPlace() const
{
    const QString place = placeOf(m_scan.directory());
    return place.isEmpty() ? tr("the whole project") : place;
}

void FilesPanel::scanCurrent()
{
    const QModelIndex current = m_selection.currentIndex();
    const auto info = current.data(VirtualFilesystemModel::FileInfo).value<QFileInfo>();
    m_scan.start(!current.isValid() ? m_content : info.isDir() ? info.absoluteFilePath() : info.absolutePath());
}

void FilesPanel::scanProject()
{
    m_scan.start(m_content);
}

void FilesPanel::show(int result)
{
    const QString path = m_search.pathOf(result);
    QString opened = m_content;
    QModelIndex found;
    for (const QString& name : placeOf(path).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
        m_files.rowCount(found); // a folder that nobody has opened has no rows yet
        opened += QLatin1Char('/') + name;
        found = m_files.indexFromPath(opened);
    }
    if (found.isValid())
        m_selection.setCurrentIndex(found, QItemSelectionModel::ClearAndSelect);
}

int FilesPanel::checkedMaps() const
{
    int checked = 0;
    for (int row = 0; row < m_maps.rowCount(); ++row)
        checked += m_maps.index(row).data(Qt::CheckStateRole).toBool() ? 1 : 0;
    return checked;
}

void FilesPanel::checkMap(int row, bool isChecked)
{
    m_maps.setData(m_maps.index(row), isChecked, Qt::CheckStateRole);
}

void FilesPanel::reload()
{
    m_files.resetModel();
    addRoots();
    m_maps.load();
    m_scan.start(m_scan.directory());
}

QString FilesPanel::iconOf(const QString& path, bool isFolder) const
{
    return QLatin1String(factsOf(isFolder ? FileKind::Folder : kindOfFile(path)).icon);
}

QString FilesPanel::sizeText(double bytes) const
{
    return shortSize(static_cast<qint64>(bytes));
}

QString FilesPanel::placeOf(const QString& path) const
{
    const QString place = QDir(m_content).relativeFilePath(path);
    return place == QLatin1String(".") ? QString() : place;
}

std::vector<Panel::Shot> FilesPanel::shots()
{
    const auto search = [this] {
        m_search.setText(QStringLiteral("lock"));
        m_maps.setData(m_maps.index(1), true, Qt::CheckStateRole);
        m_maps.setData(m_maps.index(3), true, Qt::CheckStateRole);
    };
    const auto found = [this] {
        m_search.setCurrent(0);
        show(0);
    };
    return {{QString(), search}, {QStringLiteral("found"), found}};
}

} // namespace editor
