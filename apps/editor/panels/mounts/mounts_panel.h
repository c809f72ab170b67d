#pragma once

#include "branch_pane.h"
#include "content_mounts.h"
#include "panels/panel_table.h"

#include <datamodels/helpers/model_elements_counter.h>
#include <datamodels/proxy/filter_proxy_model.h>
#include <datamodels/proxy/link_item_selection_model.h>
#include <datamodels/proxy/predicates/tokens_predicate.h>
#include <datamodels/proxy/tree_item_path_proxy_model.h>

namespace editor {

/// The panel "Mounts": several models as one tree, the way to the current row, one branch of it alone, and
/// beside it the rows with certain words. The two views have linked selections.
///
/// `ContentMounts` is the whole; on it stand a `SubtreeProxyModel`, a `TreeItemPathProxyModel` and a filter,
/// all of them made when everything is mounted. The selection is that of the whole; the filter's is linked
/// with it.
class MountsPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::TreePane* whole READ whole CONSTANT)
    Q_PROPERTY(editor::TreePane* branch READ branch CONSTANT)
    Q_PROPERTY(editor::TreePane* filtered READ filtered CONSTANT)
    Q_PROPERTY(QAbstractItemModel* path READ path CONSTANT)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY wordsChanged)
    Q_PROPERTY(QStringList needles READ needles NOTIFY wordsChanged)
    Q_PROPERTY(bool isBranchOnly READ isBranchOnly WRITE setBranchOnly NOTIFY branchOnlyChanged)
    Q_PROPERTY(bool hasCurrent READ hasCurrent NOTIFY currentChanged)
    Q_PROPERTY(bool isFilterEmpty READ isFilterEmpty NOTIFY statusChanged)

public:
    explicit MountsPanel(const PanelContext& context);
    ~MountsPanel() override;

    QString status() const override;
    std::vector<Shot> shots() override;

    TreePane* whole() { return &m_wholePane; }
    TreePane* branch() { return &m_branchPane; }
    TreePane* filtered() { return &m_filteredPane; }
    QAbstractItemModel* path() { return &m_path; }
    QItemSelectionModel* selection() { return &m_selection; }

    QString words() const { return m_words->text(); }
    /// The selection stays, also of rows that the filter hides now.
    void setWords(const QString& words);
    QStringList needles() const;

    bool isBranchOnly() const { return m_isBranchOnly; }
    /// Shows the rows below the current one alone; without a current row nothing changes.
    void setBranchOnly(bool branchOnly);
    bool hasCurrent() const { return m_selection.currentIndex().isValid(); }
    bool isFilterEmpty() const { return m_passing.value() == 0; }

    /// Makes an entry of the path current, and its branch the one that is shown alone; -1 leads to the top of
    /// all.
    Q_INVOKABLE void goTo(int entry);
    /// Looks at the disk now.
    Q_INVOKABLE void reload() { m_mounts.reload(); }

Q_SIGNALS:
    void wordsChanged();
    void branchOnlyChanged();
    void currentChanged();

private:
    void followCurrent(const QModelIndex& current);
    void queueRefresh();
    int role(const char* name) const { return m_mounts.roleNames().key(name); }
    QModelIndex find(const QStringList& names) const;

    ContentMounts m_mounts;
    QItemSelectionModel m_selection;
    qelm::datamodels::proxy::TokensPredicate* m_words; // owned by the filter
    qelm::datamodels::proxy::FilterProxyModel m_filter;
    qelm::datamodels::proxy::LinkItemSelectionModel m_filteredSelection;
    qelm::datamodels::proxy::SubtreeProxyModel m_subtree;
    qelm::datamodels::proxy::TreeItemPathProxyModel m_path;
    TreePane m_wholePane;
    BranchPane m_branchPane;
    TreePane m_filteredPane;
    ModelElementsCounter m_all;
    ModelElementsCounter m_passing;
    bool m_isBranchOnly = false;
    bool m_isRefreshQueued = false;
};

} // namespace editor
