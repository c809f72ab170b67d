#include "branch_pane.h"

namespace editor {

BranchPane::BranchPane(qelm::datamodels::proxy::SubtreeProxyModel& branch, QItemSelectionModel& selection,
                       int keyRole)
    : TreePane(branch, selection, keyRole), m_branch(branch)
{
}

QModelIndex BranchPane::selectable(int row) const
{
    return m_branch.mapToSource(TreePane::selectable(row));
}

int BranchPane::reveal(const QModelIndex& selected)
{
    int row = m_rows.rowCount() - 1;
    while (row >= 0 && selectable(row) != selected)
        --row;
    return row;
}

} // namespace editor
