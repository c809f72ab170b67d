#include "kind_list_model.h"

#include "project_tree_model.h"

namespace editor {

KindListModel::KindListModel(const ProjectTreeModel& tree, QObject* parent)
    : QAbstractListModel(parent), m_tree(tree)
{
    refresh();
}

int KindListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_choices.size());
}

QVariant KindListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const int choice = m_choices[static_cast<std::size_t>(index.row())];
    const FileKindFacts* facts = choice < 0 ? nullptr : &fileKinds()[static_cast<std::size_t>(choice)];
    switch (role) {
    case TitleRole: return QLatin1String(facts ? facts->plural : "Everything");
    case IconRole: return QLatin1String(facts ? facts->icon : "everything");
    case CountRole: return facts ? m_tree.count(facts->kind) : m_tree.totalCount();
    case ChoiceRole: return choice;
    default: return {};
    }
}

QHash<int, QByteArray> KindListModel::roleNames() const
{
    return {{TitleRole, "title"}, {IconRole, "icon"}, {CountRole, "count"}, {ChoiceRole, "choice"}};
}

void KindListModel::refresh()
{
    beginResetModel();
    m_choices = {-1};
    for (const FileKindFacts& facts : fileKinds()) {
        if (m_tree.count(facts.kind) > 0)
            m_choices.push_back(static_cast<int>(facts.kind));
    }
    endResetModel();
}

} // namespace editor
