#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractItemModel>

#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

struct ModelScopes;

/// Shows any number of models as one tree of one column, each mounted under a path: the segments of the path are rows,
/// the last of them the mount, below which the model's own rows stand.
///
/// Roles are one space, told apart by name: user roles of the same name in several models are one role, numbered from
/// `Qt::UserRole` on; lower roles keep their numbers. A role that a model has not is answered by values set on the
/// row.
/// Intended: path and mount rows show no text unless a derived class registers roles for the composite itself, by
/// `mapRoles(this, ...)`. Without a mount there are no role names at all.
///
/// Nothing is copied: counts and values are read from the models, and only rows that somebody has asked for are
/// known. Signals of a model are told for the rows below which something is known. A reset of a model is the removal
/// of all rows of its mount and the insertion of the new ones. Roles in a `dataChanged` are the model's own numbers.
/// Intended: a removal forgets one known row less than it removes, so that what stays shown behind it is shifted by
/// one row. A sort-filter proxy on top does not survive a model's removal of a row other than the last: mount such a
/// model behind a proxy that tells removals as resets. A mount is announced under an index that is not its parent's
/// usual one: a sort-filter proxy that is on top already does not see it. So mount first, then stack proxies and
/// connect views. A layout change for no parents in particular leaves the known rows where they were; a model with
/// such changes is not for mounting.
///
/// The composite shares its models, and cannot unmount one. A model that dies all the same has no rows. Models must
/// emit on the thread of the GUI. Indexes of other models have no rows and no values.
///
/// Cost: a known row takes some 200 bytes and keeps a persistent index of its model. Its place is remembered, and
/// counted anew after rows have moved. A change told for a range costs each of its rows once.
class DATAMODELS_API CompositeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit CompositeModel(QObject* parent = nullptr);
    ~CompositeModel() override;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    using QObject::parent;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Intended: always succeeds, but for an index of another model. What the row's model refuses is kept on the row,
    /// where the model's own valid values stand before it; a change of these is told without roles.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;

    /// Mounts a model under a path of segments with slashes between; several slashes count as one, leading ones not.
    /// Rows for all segments but the last are shared with earlier mounts, the mount is always a new row. A path
    /// without a last segment mounts nothing and fails an assertion, as does a null model.
    void addSubmodel(const std::string& path, std::shared_ptr<QAbstractItemModel> model);
    /// The role for a role of the model behind an index, or -1.
    int mapRoleFromSorce(QModelIndex index, int sourceRole) const;

protected:
    /// The role for a role of a model, or -1.
    int mapRoleFromSorce(const QAbstractItemModel* model, int sourceRole) const;
    /// The role of a model for a role of the composite, or -1.
    int mapRoleToSource(const QAbstractItemModel* model, int role) const;
    /// Gives the roles of a model a place among those of the composite; roles that have one keep it.
    void mapRoles(const QAbstractItemModel* model, const QHash<int, QByteArray>& roleNames);

private:
    friend struct ModelScopes;

    class Item;
    class PathItem;
    class ModelItem;
    class ModelIndexItem;
    class RetiredItems;
    using Parents = QList<QPersistentModelIndex>;
    struct Bracket;

    Item* getItem(const QModelIndex& index) const;
    Item* getItem(ModelItem* item, const QModelIndex& sourceIndex) const;
    QModelIndex indexOf(Item& item) const;
    Item* makeChild(Item& parent, int row, int column) const;
    Item* directory(Item& parent, const QString& name);
    void addItemChild(Item* parent, std::unique_ptr<Item> child, int row);
    int freeRole(const QByteArray& name);

    void listenModelItem(ModelItem* item);
    void onRowsAboutToBeInserted(ModelItem* item, const QModelIndex& parent, int first, int last);
    void onRowsInserted(ModelItem* item, const QModelIndex& parent, int first, int last);
    void onRowsAboutToBeRemoved(ModelItem* item, const QModelIndex& parent, int first, int last);
    void onRowsRemoved(ModelItem* item, const QModelIndex& parent, int first, int last);
    void onRowsAboutToBeMoved(ModelItem* item, const QModelIndex& sourceParent, int first, int last,
                              const QModelIndex& destParent, int destRow);
    void onRowsMoved(ModelItem* item, const QModelIndex& sourceParent, int first, int last,
                     const QModelIndex& destParent, int destRow);
    void onLayoutAboutToBeChanged(ModelItem* item, const Parents& parents, LayoutChangeHint hint);
    void onLayoutChanged(ModelItem* item, const Parents& parents, LayoutChangeHint hint);
    void onModelAboutToBeReset(ModelItem* item);
    void onModelReset(ModelItem* item);
    void onDataChanged(ModelItem* item, const QModelIndex& topLeft, const QModelIndex& bottomRight,
                       const QVector<int>& roles);

    Bracket beginMove(Item& source, int first, int last, Item& dest, int destRow);
    void openBracket(ModelItem& item, const Bracket& bracket);
    void closeBracket(ModelItem& item);
    void removeItems(ModelItem& mount, Item& parent, int first, int last);
    void dropChildren(ModelItem& mount, Item& parent);
    void invalidateRetiredIndexes();

    std::unique_ptr<Item> root_;
    std::set<ModelItem*> resettingItems_;
    std::unordered_map<int, std::unordered_map<const QAbstractItemModel*, int>> roleMap_;
    QHash<int, QByteArray> roleNames_;
    int nextRole_ = Qt::UserRole;
    std::vector<Bracket> brackets_; // announced; several at once for a model that is mounted several times
    std::unique_ptr<RetiredItems> retiredItems_;
    std::unique_ptr<QObject> life_; // what the connections look at; goes first
};
