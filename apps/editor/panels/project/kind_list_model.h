#pragma once

#include <QAbstractListModel>

namespace editor {

class ProjectTreeModel;

/// The choices of the kind selector: everything, then each kind that the project has.
///
/// Roles: "title", "icon", "count", and "choice", the index for the filter's switch, -1 for everything.
/// The tree must outlive it; call `refresh` when it was loaded anew. Thread: GUI.
class KindListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit KindListModel(const ProjectTreeModel& tree, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void refresh();

private:
    enum Role
    {
        TitleRole = Qt::DisplayRole,
        IconRole = Qt::UserRole + 1,
        CountRole,
        ChoiceRole,
    };

    const ProjectTreeModel& m_tree;
    std::vector<int> m_choices;
};

} // namespace editor
