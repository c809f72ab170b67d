#pragma once

#include "controls/tree_pane.h"
#include "file_scan.h"
#include "file_search.h"
#include "panels/panel_table.h"

#include <datamodels/maps_list_model.h>
#include <datamodels/virtual_filesystem/virtual_filesystem_model.h>

namespace editor {

/// The panel "Files": the folders of the project side by side, of which each is read when it is opened and loses its
/// rows when files are deleted; a search in all of it, which goes on while the disk is still read; and the game's maps.
class FilesPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::TreePane* roots READ roots CONSTANT)
    Q_PROPERTY(editor::FileScan* scan READ scan CONSTANT)
    Q_PROPERTY(editor::FileSearch* search READ search CONSTANT)
    Q_PROPERTY(QAbstractItemModel* maps READ maps CONSTANT)
    Q_PROPERTY(int checkedMaps READ checkedMaps NOTIFY mapsChanged)
    Q_PROPERTY(QString searchedPlace READ searchedPlace NOTIFY placeChanged)

public:
    explicit FilesPanel(const PanelContext& context);
    ~FilesPanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;
    bool isBusy() const override { return m_scan.isRunning() || m_search.isSearching(); }

    TreePane* roots() { return &m_rootsPane; }
    FileScan* scan() { return &m_scan; }
    FileSearch* search() { return &m_search; }
    QAbstractItemModel* maps() { return &m_maps; }
    int checkedMaps() const;
    /// Where the search looks, as a line for people.
    QString searchedPlace() const;

    /// The folder of the current row, or of the file that it is; the project without one.
    Q_INVOKABLE void scanCurrent();
    Q_INVOKABLE void scanProject();
    /// Shows a result in its folder.
    Q_INVOKABLE void show(int result);
    Q_INVOKABLE void checkMap(int row, bool isChecked);
    Q_INVOKABLE void checkAllMaps(bool isChecked) { m_maps.setCheckedAll(isChecked); }
    /// Reads folders and maps anew.
    Q_INVOKABLE void reload();

    Q_INVOKABLE QString iconOf(const QString& path, bool isFolder) const;
    Q_INVOKABLE QString sizeText(double bytes) const;
    /// Below the project, for a path of the disk.
    Q_INVOKABLE QString placeOf(const QString& path) const;

Q_SIGNALS:
    void mapsChanged();
    void placeChanged();

private:
    void addRoots();
    void readAhead(int firstRow, int lastRow);

    QString m_content;
    datamodels::VirtualFilesystemModel m_files;
    QItemSelectionModel m_selection;
    TreePane m_rootsPane;
    FileScan m_scan;
    FileSearch m_search;
    MapsListModel m_maps;
};

} // namespace editor
