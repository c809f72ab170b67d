#include <datamodels/proxy/search_proxy_model.h>

#include <datamodels/proxy/search_results.h>
#include <datamodels/proxy/search_scan.h>
#include <host/base/debug.h>

#include <QPointer>
#include <QScopeGuard>

#include <map>
#include <stdexcept>
#include <utility>

namespace qelm::datamodels::proxy {

using Ozy::AsyncManager;
using Job = AsyncManager::Job;

SearchProxyModel::SearchProxyModel(QObject* parent)
    : QAbstractProxyModel(parent), m_items(std::make_unique<SearchResults>())
{
}

SearchProxyModel::~SearchProxyModel()
{
    stopSearching();
}

QModelIndex SearchProxyModel::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, 0) : QModelIndex();
}

QModelIndex SearchProxyModel::parent(const QModelIndex&) const
{
    return {};
}

int SearchProxyModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items->size());
}

int SearchProxyModel::columnCount(const QModelIndex&) const
{
    return 1;
}

bool SearchProxyModel::hasChildren(const QModelIndex& parent) const
{
    return rowCount(parent) > 0;
}

QVariant SearchProxyModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    if (role == SearchInfoRole) {
        const auto row = static_cast<std::size_t>(index.row());
        if (row >= m_items->size())
            throw std::out_of_range("invalid vector subscript");
        return m_items->at(row).info;
    }
    // A result belongs to the source that was searched, whichever is set now.
    return hasSource() ? mapToSource(index).data(role) : QVariant();
}

QHash<int, QByteArray> SearchProxyModel::roleNames() const
{
    auto names = QAbstractItemModel::roleNames();
    names.insert(SearchInfoRole, "searchInfo");
    return names;
}

void SearchProxyModel::setSourceModel(QAbstractItemModel* model)
{
    if (model == sourceModel())
        return;
    beginResetModel();
    if (sourceModel())
        disconnect(sourceModel(), nullptr, this, nullptr);
    QAbstractProxyModel::setSourceModel(model);
    if (model)
        connect(model, &QAbstractItemModel::dataChanged, this, &SearchProxyModel::processSourceDataChanged);
    endResetModel();
}

bool SearchProxyModel::hasSource() const
{
    return OZY_ASSERT_AS("sourceModel()", sourceModel() != nullptr);
}

QModelIndex SearchProxyModel::mapToSource(const QModelIndex& index) const
{
    if (!hasSource() || !index.isValid())
        return {};
    const int row = index.row();
    const bool isRow = row >= 0 && static_cast<std::size_t>(row) < m_items->size();
    if (!OZY_ASSERT_AS("row >= 0 && row < m_items.size()", isRow))
        return {};
    return m_items->at(static_cast<std::size_t>(row)).index;
}

QModelIndex SearchProxyModel::mapFromSource(const QModelIndex& source) const
{
    if (!hasSource())
        return {};
    const int row = m_items->rowOf(source);
    return row >= 0 ? createIndex(row, 0) : QModelIndex();
}

bool SearchProxyModel::isSeraching() const
{
    return !Job::isFinalState(m_searchJob.state());
}

int SearchProxyModel::getCount() const
{
    return rowCount();
}

void SearchProxyModel::setSearchBufferSize(std::size_t size)
{
    m_searchBufferSize = size;
}

int SearchProxyModel::indexOf(QString childName)
{
    const QVariant wanted(childName);
    for (std::size_t row = 0; row < m_items->size(); ++row) {
        if (m_items->at(row).index.data(Qt::DisplayRole) == wanted)
            return static_cast<int>(row);
    }
    return -1;
}

void SearchProxyModel::search(QModelIndex rootIndex, Predicate predicate, bool recursive,
                              std::function<void()> callback)
{
    stopSearching();
    const int count = rowCount();
    const QPersistentModelIndex root = rootIndex;
    beginResetModel();
    m_items->clear();
    endResetModel();
    if (count != 0)
        Q_EMIT countChanged();

    stopSearching(); // a slot may have started another one
    m_scan = std::make_shared<SearchScan>(sourceModel(), root, std::move(predicate), recursive);
    if (sourceModel()) {
        connect(sourceModel(), &QAbstractItemModel::modelAboutToBeReset, m_scan.get(),
                [this] { stopSearching(); });
        connect(sourceModel(), &QObject::destroyed, m_scan.get(), [this] { stopSearching(); });
    }
    m_searchJob = AsyncManager::async(0, [this, scan = m_scan.get()](const Job& job) {
        const auto flushRest =
            qScopeGuard([&] { job += AsyncManager::sync(false, [this] { flushSearchBuffer(); }); });
        scan->run(job, m_searchBufferSize, [&] {
            const Job flush = AsyncManager::sync(true, [this] { flushSearchBuffer(); });
            job += flush;
            flush.wait();
        });
        return true;
    });
    watchJob(std::move(callback));
}

void SearchProxyModel::watchJob(std::function<void()> callback)
{
    // States arrive from the event loop, maybe after this object has gone.
    m_searchJob.connectStateChanged([self = QPointer(this), scan = std::weak_ptr(m_scan), cancelled = false,
                                     callback = std::move(callback)](Job::State state) mutable {
        if (!self)
            return;
        cancelled = cancelled || state == Job::Cancelled;
        if (state == Job::Ended && self->m_scan == scan.lock())
            self->m_scan.reset();
        Q_EMIT self->searchingChanged();
        if (state == Job::Ended && !cancelled && callback)
            callback();
    });
}

void SearchProxyModel::flushSearchBuffer()
{
    const auto scan = m_scan; // a slot may start another search
    scan->flush([&](std::vector<SearchItem> found) { show(*scan, std::move(found)); });
}

void SearchProxyModel::show(const SearchScan& scan, std::vector<SearchItem> found)
{
    for (SearchItem& item : found) {
        if (scan.isForgotten()) // a slot has stopped the search
            return;
        if (scan.mayRepeat() && m_items->rowOf(item.index) >= 0)
            continue;
        const std::size_t row = m_items->place(item);
        beginInsertRows({}, static_cast<int>(row), static_cast<int>(row));
        m_items->insert(row, std::move(item));
        endInsertRows();
    }
    Q_EMIT countChanged();
}

void SearchProxyModel::stopSearching()
{
    if (Job::isFinalState(m_searchJob.state()))
        return;
    m_searchJob.cancel(true);
    m_scan->forget();
}

void SearchProxyModel::sort(QVariantList sortRoles)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    m_items->sort(parseSortRoles(sortRoles));
    // Intended: the one call stands for the whole change, so that a persistent index on the first row moves
    // to the last one, and no other is updated.
    changePersistentIndex(index(0, 0), index(rowCount() - 1, 0));
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

std::vector<SortRole> SearchProxyModel::parseSortRoles(const QVariantList& list) const
{
    std::vector<SortRole> roles;
    for (const QVariant& entry : list) {
        if (entry.userType() != QMetaType::QVariantMap)
            continue;
        const QVariantMap map = entry.toMap();
        const QVariant role = map.value(QStringLiteral("role"));
        const QVariant order = map.value(QStringLiteral("order"));
        if (order.userType() != QMetaType::Int)
            continue;
        switch (role.userType()) {
        case QMetaType::Int:
            roles.push_back({role.toInt(), order.toInt()});
            break;
        case QMetaType::QString:
        case QMetaType::QByteArray:
            roles.push_back({roleKey(role.toByteArray()), order.toInt()});
            break;
        default:
            break;
        }
    }
    return roles;
}

int SearchProxyModel::roleKey(const QByteArray& name) const
{
    return roleNames().key(name, -1);
}

void SearchProxyModel::processSourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                                const QVector<int>& roles)
{
    if (!OZY_ASSERT(topLeft.parent() == bottomRight.parent()))
        return;
    if (!topLeft.isValid() || topLeft.column() > 0)
        return; // results are rows, in column 0

    std::map<int, QModelIndex> changed;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex proxy = mapFromSource(topLeft.sibling(row, 0));
        if (!proxy.isValid())
            continue;
        changed.emplace(proxy.row(), proxy);
        m_items->forgetKeys(static_cast<std::size_t>(proxy.row()));
    }

    QModelIndex proxyTopLeft;
    QModelIndex proxyBottomRight;
    const auto tell = [&] {
        if (OZY_ASSERT(proxyTopLeft.isValid()) && OZY_ASSERT(proxyBottomRight.isValid()))
            Q_EMIT dataChanged(proxyTopLeft, proxyBottomRight, roles);
    };
    for (const auto& [row, proxy] : changed) {
        if (proxyTopLeft.isValid() && row == proxyBottomRight.row() + 1) {
            proxyBottomRight = proxy;
            continue;
        }
        if (proxyTopLeft.isValid())
            tell();
        proxyTopLeft = proxyBottomRight = proxy;
    }
    if (proxyTopLeft.isValid())
        tell();
}

} // namespace qelm::datamodels::proxy
