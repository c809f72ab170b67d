#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractProxyModel>

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

struct ModelScopes;

namespace qelm::datamodels::proxy {

class GroupTable;
struct Group;

/// Shows the children of one source index in groups: a row for each text that a role has among them, "empty" for none,
/// with the source rows of that text as its children.
///
/// A group row answers `Qt::DisplayRole` with the text, `Qt::DecorationRole` with its icon, `SceneRoles::Count` with
/// the number of members as an unsigned 64-bit value, and a shared role with the value that all members have, if they
/// have one. For all else it is the invalid source index: its flags are those of the source's root, and it cannot be
/// set. A member answers as its source row. There is one column.
///
/// Groups stand in the order in which they were first seen, members in that of the source; what comes later stands at
/// the end. A proxy on top may sort.
///
/// Signals: the source's insertions, removals and changes are followed row by row. Inserted rows: new groups with all
/// their members in one insertion, then for each older group an insertion of members and a `dataChanged` of the group
/// row for the count and the shared roles that were asked for. Removed rows: groups that go, one by one, then for
/// each other group its members one by one and the same `dataChanged`. Changed rows: the change as the source told
/// it, then one of each group row; if a row has got another text, the whole reported range leaves its groups and
/// joins again.
/// Intended: a change that spans groups is forwarded with ends of two parents, and one in another column than the
/// first with invalid ends; a sort-filter proxy on top looks at the group of the first end only, unless rows are told
/// one by one. A `layoutChanged` comes without announcement, after which persistent indexes are invalid.
///
/// Moved rows and columns, and inserted columns, are reported as messages and not followed.
///
/// The proxy does not own its source. After a source has died the groups stay, with members that have no values. When
/// the row of the root index goes, the source's top level takes its place: what comes there from then on is grouped.
/// Indexes of other models map to nothing; a root index of another model has no rows.
///
/// Cost: filling asks each row for its text once. Mapping takes constant time. Each member keeps a persistent index of
/// the source alive, which the source pays for when it inserts or removes rows ahead of it. A removed group costs its
/// members and the number of groups, a removed member next to nothing, a shared value one pass over the members until
/// there is an answer. Thread: GUI only.
class DATAMODELS_API GroupByProxyModel : public QAbstractProxyModel
{
    Q_OBJECT

public:
    GroupByProxyModel();
    ~GroupByProxyModel() override;

    /// Rebuilds in a reset, around the `sourceModelChanged` of the base. The root index stays as it is: set it next.
    void setSourceModel(QAbstractItemModel* source) override;

    /// Intended: below a group every row from 0 on has an index, also behind the last member.
    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;

    /// Groups by another role, in a reset. With the name "Name", "Type" or "Path" a group shows the icon of a member,
    /// otherwise a folder. Intended: for the present role nothing happens, whatever its name.
    void setRole(int role, std::string roleName);
    /// Groups the children of another source index, the top level for the invalid one; a reset even if it is the same.
    void setRootIndex(const QModelIndex& index);
    /// The roles in which groups show shared values. Nobody is told.
    void setSharedRoles(const std::unordered_set<int>& roles);
    /// Gives all group rows one value, ahead of all others that they have. Intended: the first value for a role stays.
    /// Nobody is told.
    void setGroupProperty(int role, const QVariant& value);

private:
    friend struct ::ModelScopes;

    struct Batch;

    std::pair<Group*, int> fromIndex(const QModelIndex& index) const;
    QModelIndex toIndex(int row, int key, const Group& group) const;
    QVariant groupData(Group& group, int role) const;
    QVariant fetchSharedData(Group& group, int role) const;
    QVariant getGroupIcon(const QModelIndex& sourceIndex) const;
    QString getGroupName(const QModelIndex& sourceIndex, bool useCurrentGroup) const;
    void populate();

    void followSource(QAbstractItemModel& source);
    void onItemsInserted(const QModelIndex& parent, int first, int last);
    void onItemsAboutToBeRemoved(const QModelIndex& parent, int first, int last, bool useCurrentGroup);
    void onDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles);
    void onLayoutChanged();
    void requestUpdateSharedData(const QModelIndex& groupIndex, QVector<int>& roles, bool addRequestedRoles);

    std::vector<Batch> batchesOf(const QModelIndex& parent, int first, int last, bool useCurrentGroup) const;
    void insertGroups(std::vector<Batch>& batches);
    void insertMembers(Batch& batch);
    void removeGroup(const QString& name);
    void removeMembers(const Batch& batch);
    void removeMember(const QModelIndex& groupIndex, const QPersistentModelIndex& sourceIndex);

    QPersistentModelIndex m_rootIndex;
    std::unique_ptr<GroupTable> m_groups;
    std::unordered_map<int, QVariant> m_groupProperties;
    std::vector<QMetaObject::Connection> m_connections;
    int m_role = Qt::DisplayRole;
    std::string m_roleName;
    bool m_iconFromSource = false;
    std::unordered_set<int> m_sharedRoles;
    quint64 m_sharedGeneration = 1; // answers of older ones do not count
};

} // namespace qelm::datamodels::proxy
