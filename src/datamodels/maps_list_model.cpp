#include <datamodels/maps_list_model.h>

#include <datamodels/model_scopes.h>
#include <host/base/stack_tracker.h>
#include <host/resources/multi_file_system.h>
#include <host/resources/utils.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr const char* mapsDirectory = "scripts/arena_defs";

bool isMap(std::string_view entry)
{
    static constexpr std::array<std::string_view, 4> others{"_common_.xml", "_default_.xml", "_list_.xml", ".svn"};
    return std::find(others.begin(), others.end(), entry) == others.end();
}

} // namespace

MapsListModel::MapsListModel(QObject* parent) : QAbstractListModel(parent) {}

int MapsListModel::rowCount(const QModelIndex&) const
{
    return m_items.size();
}

int MapsListModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant MapsListModel::data(const QModelIndex& index, int role) const
{
    const Item* item = getItem(index);
    if (item && role == Qt::DisplayRole)
        return item->name;
    if (item && role == Qt::CheckStateRole)
        return item->checked;
    return {};
}

bool MapsListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    Item* item = getItem(index);
    if (!item)
        return false;
    if (role == Qt::DisplayRole && item->name != value.toString()) {
        item->name = value.toString();
        Q_EMIT dataChanged(index, index, {role});
    } else if (role == Qt::CheckStateRole && item->checked != value.toBool()) {
        item->checked = value.toBool();
        Q_EMIT dataChanged(index, index, {role});
    }
    return true;
}

QHash<int, QByteArray> MapsListModel::roleNames() const
{
    return {{Qt::DisplayRole, "name"}, {Qt::CheckStateRole, "checked"}};
}

void MapsListModel::load()
{
    const Ozy::StackTracker::Scope entry("MapsListModel::load");
    // Read ahead of the reset: views may ask for rows while the disk is slow.
    std::vector<std::string> entries;
    Ozy::FS::fileSystem()->readDirectory(entries, mapsDirectory);

    const ModelScopes::Reset scope(*this);
    m_items.clear();
    for (const std::string& name : entries) {
        const std::string_view map = Ozy::FS::Utils::removeExtension(name);
        if (isMap(name))
            m_items.push_back({QString::fromUtf8(map.data(), static_cast<int>(map.size())), false});
    }
}

void MapsListModel::clear()
{
    const Ozy::StackTracker::Scope entry("MapsListModel::clear");
    const ModelScopes::Reset scope(*this);
    m_items.clear();
}

void MapsListModel::setCheckedAll(bool checked)
{
    for (int row = 0; row < rowCount(); ++row)
        setData(index(row, 0), checked, Qt::CheckStateRole);
}

MapsListModel::Item* MapsListModel::getItem(const QModelIndex& index)
{
    return std::as_const(*this).getItem(index) ? &m_items[index.row()] : nullptr;
}

const MapsListModel::Item* MapsListModel::getItem(const QModelIndex& index) const
{
    const bool isRow = index.isValid() && index.row() < m_items.size();
    return isRow ? &m_items[index.row()] : nullptr;
}
