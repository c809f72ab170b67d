#pragma once

#include "controls/tree_pane.h"

#include <datamodels/proxy/subtree_proxy_model.h>

namespace editor {

/// A pane on one branch of a tree, with the selection of the whole. The branch must outlive it.
class BranchPane : public TreePane
{
    Q_OBJECT

public:
    BranchPane(qelm::datamodels::proxy::SubtreeProxyModel& branch, QItemSelectionModel& selection,
               int keyRole);

protected:
    QModelIndex selectable(int row) const override;
    /// Opens nothing: the branch does not know the way up from its rows.
    int reveal(const QModelIndex& selected) override;

private:
    qelm::datamodels::proxy::SubtreeProxyModel& m_branch;
};

} // namespace editor
