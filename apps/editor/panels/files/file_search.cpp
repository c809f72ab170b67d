#include "file_search.h"

#include <algorithm>

namespace editor {

namespace {

constexpr std::size_t resultsAtOnce = 1000;

QVariantMap sortedBy(const QString& role, Qt::SortOrder order)
{
    return {{QStringLiteral("role"), role}, {QStringLiteral("order"), int(order)}};
}

bool isAbout(const QVariant& entry, const QString& role)
{
    return entry.toMap().value(QStringLiteral("role")).toString() == role;
}

} // namespace

FileSearch::FileSearch(QObject* parent) : QObject(parent)
{
    m_results.setSearchBufferSize(resultsAtOnce);
    connect(&m_results, &qelm::datamodels::proxy::SearchProxyModel::searchingChanged, this, &FileSearch::stateChanged);
    connect(&m_results, &qelm::datamodels::proxy::SearchProxyModel::countChanged, this, &FileSearch::stateChanged);
    // The row of the current result, which moves when others arrive ahead of it.
    connect(&m_results, &QAbstractItemModel::rowsInserted, this, &FileSearch::currentChanged);
    connect(&m_results, &QAbstractItemModel::layoutChanged, this, &FileSearch::currentChanged);
}

void FileSearch::setSource(QAbstractItemModel* source)
{
    m_results.setSourceModel(source);
    start();
}

void FileSearch::setText(const QString& text)
{
    if (this->text() == text)
        return;
    m_matcher.setText(text);
    Q_EMIT textChanged();
    start();
}

bool FileSearch::hasWords() const
{
    return !text().trimmed().isEmpty();
}

void FileSearch::start()
{
    setCurrent(-1);
    if (!source())
        return;
    if (hasWords())
        m_matcher.search(&m_results, QModelIndex());
    else
        m_results.search(QModelIndex(), [](const QModelIndex&, QVariant&) { return false; });
}

void FileSearch::sortBy(const QString& role, bool isAdding)
{
    const auto entry =
        std::find_if(m_order.begin(), m_order.end(), [&](const QVariant& one) { return isAbout(one, role); });
    const Qt::SortOrder order = orderOf(role) == 1 ? Qt::DescendingOrder : Qt::AscendingOrder;
    if (!isAdding)
        m_order = {sortedBy(role, order)};
    else if (entry != m_order.end())
        *entry = sortedBy(role, order);
    else
        m_order << sortedBy(role, order);
    m_results.sort(m_order);
    Q_EMIT orderChanged();
}

int FileSearch::orderOf(const QString& role) const
{
    const auto entry =
        std::find_if(m_order.begin(), m_order.end(), [&](const QVariant& one) { return isAbout(one, role); });
    if (entry == m_order.end())
        return 0;
    return entry->toMap().value(QStringLiteral("order")).toInt() == Qt::AscendingOrder ? 1 : 2;
}

void FileSearch::setCurrent(int row)
{
    const QModelIndex wanted = m_results.index(row, 0);
    if (m_current == wanted)
        return;
    m_current = wanted;
    Q_EMIT currentChanged();
}

QString FileSearch::pathOf(int row) const
{
    return m_results.index(row, 0).data(m_results.roleNames().key("absolutePath")).toString();
}

void FileSearch::step(int by)
{
    if (count() == 0)
        return;
    const int from = current() < 0 && by < 0 ? 0 : current();
    setCurrent((from + by + count()) % count());
}

} // namespace editor
