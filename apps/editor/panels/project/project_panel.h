#pragma once

#include "controls/tree_cursor.h"
#include "kind_list_model.h"
#include "panels/panel_table.h"
#include "project_details.h"
#include "project_filter.h"
#include "project_tree_model.h"

#include <datamodels/helpers/model_elements_counter.h>

namespace editor {

/// The panel "Project": the files of the project as a tree, filtered and sorted, with details of the current one.
///
/// The way of a row: `ProjectTreeModel`, `ProjectFilter`, `TreeRows`, view. The panel owns all of them.
class ProjectPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::ProjectFilter* filter READ filter CONSTANT)
    Q_PROPERTY(editor::TreeRows* rows READ rows CONSTANT)
    Q_PROPERTY(editor::TreeCursor* cursor READ cursor CONSTANT)
    Q_PROPERTY(editor::KindListModel* kinds READ kinds CONSTANT)
    Q_PROPERTY(editor::ProjectDetails* details READ details CONSTANT)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY statusChanged)
    Q_PROPERTY(QString emptyReason READ emptyReason NOTIFY statusChanged)

public:
    explicit ProjectPanel(const PanelContext& context);
    ~ProjectPanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;

    ProjectFilter* filter() { return &m_filter; }
    TreeRows* rows() { return &m_rows; }
    TreeCursor* cursor() { return &m_cursor; }
    KindListModel* kinds() { return &m_kinds; }
    ProjectDetails* details() { return &m_details; }

    /// Rows that the filter leaves, in open branches and closed ones.
    int shownRows() const { return m_shown.value(); }
    int totalRows() const { return m_tree.totalCount(); }
    bool isEmpty() const { return shownRows() == 0; }
    /// What to tell instead of rows when there are none.
    QString emptyReason() const;

    /// Reads the directory anew; open branches, filter and current row stay.
    Q_INVOKABLE void reload();

private:
    void showCurrent();
    void queueStatus();
    QModelIndex find(const QString& path) const;

    QString m_directory;
    ProjectTreeModel m_tree;
    ProjectFilter m_filter;
    TreeRows m_rows;
    TreeCursor m_cursor;
    KindListModel m_kinds;
    ProjectDetails m_details;
    ModelElementsCounter m_shown;
    bool m_isStatusQueued = false;
};

} // namespace editor
