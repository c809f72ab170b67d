#pragma once

#include <datamodels/persistent_index_key.h>
#include <datamodels/proxy/group.h>

#include <QHash>

#include <memory>
#include <unordered_map>
#include <vector>

namespace qelm::datamodels::proxy {

/// The groups of a `GroupByProxyModel` with their members; tables only, nobody is told of a change.
///
/// A member is known by a persistent index, so that nothing changes here when the source inserts or removes other
/// rows. It names its group by a slot that the group keeps for life: when a group goes, only the positions of the
/// later groups change, not their members. It knows its row to within a few, and is searched for there; a group whose
/// rows have become too uncertain by removals is counted anew. So lookups take constant time.
///
/// Model indexes carry the number of a slot, never a pointer. A stale one finds nothing; once the slot has been given
/// to another group, which does not happen before all have heard of the removal, it finds that.
class GroupTable
{
public:
    void clear();
    /// Makes room for that many members.
    void reserve(int members);

    int count() const { return static_cast<int>(m_order.size()); }
    Group* at(int position) const;
    Group* find(const QString& name) const;
    /// The group that is found by the name, which becomes its name; a new one at the end if there is none.
    Group& fetch(const QString& name);
    /// Lets the first group be found by one more name. Nothing happens without groups.
    void nameFirst(const QString& name);
    /// Removes a group with its members and all its names. False if there is none of that name.
    bool remove(const QString& name);

    const Group::Member* member(const QPersistentModelIndex& source) const;
    Group& groupOf(const Group::Member& member) const;
    int rowOf(const Group::Member& member) const;
    /// At the end of the group. False, and nothing happens, for an invalid index and for one that is a member already.
    bool append(Group& group, QPersistentModelIndex source);
    bool removeMember(const QPersistentModelIndex& source);

    /// What the indexes of a group row and of its members carry. Zero is none's.
    static quintptr groupId(const Group& group) { return 2 * static_cast<quintptr>(group.slot) + 2; }
    static quintptr memberId(const Group& group) { return groupId(group) + 1; }
    static bool isMemberId(quintptr id) { return id % 2 == 1; }
    /// The group of such an id, or null if it has gone.
    Group* groupOfId(quintptr id) const;

private:
    Group& add(const QString& name);
    int takeSlot();
    void retire(int slot);
    void forgetNames(const Group& group);

    std::vector<Group*> m_order; // by position
    std::vector<std::unique_ptr<Group>> m_slots;
    std::vector<int> m_spareSlots;
    std::vector<int> m_retiredSlots; // by the last removal; indexes may still carry them
    QHash<QString, Group*> m_byName;
    std::unordered_map<QPersistentModelIndex, GroupPlace, PersistentIndexHash, SamePersistentIndex> m_members;
};

} // namespace qelm::datamodels::proxy
