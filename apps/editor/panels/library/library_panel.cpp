#include "library_panel.h"

#include "panels/texts.h"

namespace editor {

using namespace qelm::datamodels::proxy;

LibraryPanel::LibraryPanel(const PanelContext& context)
    : m_assets(context.content)
    , m_groups(m_assets)
    , m_words(
          new TokensPredicate({AssetListModel::NameRole, AssetListModel::PathRole, AssetListModel::KindRole}))
    , m_filter(m_words)
    , m_rows(AssetListModel::KeyRole)
    , m_cursor(m_rows)
{
    m_filter.setSourceModel(&m_groups);
    m_filter.sort(0);
    m_rows.setSourceModel(&m_filter);
    connect(m_words, &TextPredicate::textChanged, this, [this] {
        m_cursor.followFilter(isFiltered());
        Q_EMIT needlesChanged();
    });
    connect(&m_filter, &BaseFilterProxyModel::sortingChanged, this, &LibraryPanel::sortingChanged);
    m_shownGroups.setMode(ModelElementsCounter::RootChildren);
    m_shownGroups.setModel(&m_filter);
    m_shown.setModel(&m_filter);
    for (ModelElementsCounter* counter : {&m_shownGroups, &m_shown})
        connect(counter, &ModelElementsCounter::valueChanged, this, &LibraryPanel::queueStatus);
    connect(&m_assets, &QAbstractItemModel::rowsInserted, this, &LibraryPanel::queueStatus);
    connect(&m_assets, &QAbstractItemModel::rowsRemoved, this, &LibraryPanel::queueStatus);
}

LibraryPanel::~LibraryPanel() = default;

QString LibraryPanel::status() const
{
    const QString all = counted(m_assets.rowCount(), "asset", "assets");
    const int shown = m_shown.value() - m_shownGroups.value();
    const QString text = isFiltered() ? QStringLiteral("%1 of %2").arg(shown).arg(all) : all;
    return text + QStringLiteral(" in ") + counted(m_shownGroups.value(), "group", "groups");
}

QStringList LibraryPanel::needles() const
{
    return m_words->text().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString LibraryPanel::sortedBy() const
{
    return QString::fromLatin1(m_filter.roleNames().value(m_filter.sortRole()));
}

bool LibraryPanel::isDescending() const
{
    return m_filter.QSortFilterProxyModel::sortOrder() == Qt::DescendingOrder;
}

void LibraryPanel::sortOrTurn(const QString& roleName)
{
    const bool turns = roleName == sortedBy() && !isDescending();
    m_filter.sortByRole(roleName, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
}

QString LibraryPanel::emptyReason() const
{
    if (m_assets.rowCount() == 0)
        return QStringLiteral("There are no assets in\n%1").arg(m_assets.directory());
    return QStringLiteral("None of the %1 has these words")
        .arg(counted(m_assets.rowCount(), "asset", "assets"));
}

// What happens on the disk, or to the filter, comes as many notifications.
void LibraryPanel::queueStatus()
{
    if (m_isStatusQueued)
        return;
    m_isStatusQueued = true;
    const auto tell = [this] {
        m_isStatusQueued = false;
        Q_EMIT statusChanged();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

std::vector<Panel::Shot> LibraryPanel::shots()
{
    const auto open = [this] {
        m_cursor.setRow(8);
        for (int group : {9, 5, 4})
            m_rows.setOpen(group, true);
    };
    const auto filter = [this] {
        m_groups.setBy(LibraryGroups::ByFolder);
        m_words->setText(QStringLiteral("brick kiln"));
        m_words->setType(TokensPredicate::Type::Any);
    };
    return {{QString(), open}, {QStringLiteral("folders"), filter}};
}

} // namespace editor
