#pragma once

#include <QAbstractItemModel>
#include <QStringList>

#include <vector>

/// Persistent indexes of all cells of a model against what they show.
///
///     IndexKeeper keeper(proxy, ScriptedTree::IdRole);
///     source.move({}, 0, 1, {}, 3);
///     QCOMPARE(keeper.strayed(), QStringList());
///
/// The role should be one that a row keeps for life.
class IndexKeeper
{
public:
    explicit IndexKeeper(const QAbstractItemModel& model, int role = Qt::DisplayRole);

    /// Takes the cells that there are now, in place of those before.
    void keepAll();

    int count() const { return int(m_kept.size()); }
    /// The indexes that are still valid and show something else: "/0/1 shows b, not a".
    QStringList strayed() const;
    /// What the indexes showed that are not valid any more.
    QStringList lost() const;

private:
    struct Kept
    {
        QPersistentModelIndex index;
        QVariant datum;
    };
    void keepBelow(const QModelIndex& parent);

    const QAbstractItemModel& m_model;
    int m_role;
    std::vector<Kept> m_kept;
};
