#pragma once

#include <datamodels/proxy/shared_values.h>

#include <QPersistentModelIndex>
#include <QString>
#include <QVariant>

#include <utility>
#include <vector>

namespace qelm::datamodels::proxy {

/// Where a member stands: in the group that holds a slot of the `GroupTable`, at `row` or a little ahead of it, since
/// members that leave do not tell those behind them at once.
struct GroupPlace
{
    int slot = 0;
    int row = 0;
};

/// One group of a `GroupTable`, which alone changes its members and its place among the groups.
struct Group
{
    /// A source row with its place; lives in the table, at an address of its own.
    using Member = std::pair<const QPersistentModelIndex, GroupPlace>;

    int index = 0; ///< its row in the proxy
    int slot = 0;
    QString name;
    QVariant icon;
    std::vector<Member*> members; ///< by row
    int removals = 0;             ///< since all places were right
    SharedValues shared;

    int count() const { return static_cast<int>(members.size()); }
};

} // namespace qelm::datamodels::proxy
