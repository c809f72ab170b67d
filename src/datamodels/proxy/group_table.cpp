#include <datamodels/proxy/group_table.h>

#include <algorithm>
#include <utility>

namespace qelm::datamodels::proxy {
namespace {

constexpr int longestSearch = 64;

void countAnew(Group& group)
{
    int row = 0;
    for (Group::Member* member : group.members)
        member->second.row = row++;
    group.removals = 0;
}

} // namespace

void GroupTable::clear()
{
    m_members.clear();
    m_byName.clear();
    m_spareSlots.insert(m_spareSlots.end(), m_retiredSlots.begin(), m_retiredSlots.end());
    m_retiredSlots.clear();
    for (const Group* group : std::exchange(m_order, {}))
        retire(group->slot);
}

void GroupTable::reserve(int members)
{
    m_members.reserve(static_cast<std::size_t>(members));
}

Group* GroupTable::at(int position) const
{
    return position >= 0 && position < count() ? m_order[static_cast<std::size_t>(position)] : nullptr;
}

Group* GroupTable::find(const QString& name) const
{
    return m_byName.value(name, nullptr);
}

Group& GroupTable::fetch(const QString& name)
{
    Group* found = find(name);
    if (!found)
        return add(name);
    if (found->name != name)
        found->name = name;
    return *found;
}

void GroupTable::nameFirst(const QString& name)
{
    if (!m_order.empty())
        m_byName.insert(name, m_order.front());
}

bool GroupTable::remove(const QString& name)
{
    Group* group = find(name);
    if (!group)
        return false;

    for (const Group::Member* member : group->members)
        m_members.erase(m_members.find(member->first));
    forgetNames(*group);
    m_order.erase(m_order.begin() + group->index);
    for (int position = group->index; position < count(); ++position)
        at(position)->index = position;

    m_spareSlots.insert(m_spareSlots.end(), m_retiredSlots.begin(), m_retiredSlots.end());
    m_retiredSlots.clear();
    retire(group->slot);
    return true;
}

const Group::Member* GroupTable::member(const QPersistentModelIndex& source) const
{
    const auto found = m_members.find(source);
    return found == m_members.end() ? nullptr : &*found;
}

Group& GroupTable::groupOf(const Group::Member& member) const
{
    return *m_slots[static_cast<std::size_t>(member.second.slot)];
}

int GroupTable::rowOf(const Group::Member& member) const
{
    const std::vector<Group::Member*>& members = groupOf(member).members;
    auto row = std::min(static_cast<std::size_t>(member.second.row), members.size() - 1);
    while (members[row] != &member)
        --row;
    return static_cast<int>(row);
}

bool GroupTable::append(Group& group, QPersistentModelIndex source)
{
    if (!source.isValid())
        return false;
    const auto [member, isNew] = m_members.try_emplace(std::move(source), GroupPlace{group.slot, group.count()});
    if (isNew)
        group.members.push_back(&*member);
    return isNew;
}

bool GroupTable::removeMember(const QPersistentModelIndex& source)
{
    const auto found = m_members.find(source);
    if (found == m_members.end())
        return false;

    Group& group = groupOf(*found);
    group.members.erase(group.members.begin() + rowOf(*found));
    if (++group.removals == longestSearch)
        countAnew(group);
    m_members.erase(found);
    return true;
}

Group* GroupTable::groupOfId(quintptr id) const
{
    const quintptr slot = id / 2 - 1; // past the end for no id
    return slot < m_slots.size() ? m_slots[slot].get() : nullptr;
}

Group& GroupTable::add(const QString& name)
{
    auto group = std::make_unique<Group>();
    group->index = count();
    group->slot = takeSlot();
    group->name = name;

    m_order.push_back(group.get());
    m_byName.insert(name, group.get());
    return *(m_slots[static_cast<std::size_t>(group->slot)] = std::move(group));
}

int GroupTable::takeSlot()
{
    if (m_spareSlots.empty()) {
        m_slots.emplace_back();
        return static_cast<int>(m_slots.size()) - 1;
    }
    const int slot = m_spareSlots.back();
    m_spareSlots.pop_back();
    return slot;
}

void GroupTable::retire(int slot)
{
    m_slots[static_cast<std::size_t>(slot)].reset();
    m_retiredSlots.push_back(slot);
}

void GroupTable::forgetNames(const Group& group)
{
    m_byName.remove(group.name);
    if (m_byName.size() < count())
        return;
    for (auto name = m_byName.begin(); name != m_byName.end();)
        name = name.value() == &group ? m_byName.erase(name) : std::next(name);
}

} // namespace qelm::datamodels::proxy
