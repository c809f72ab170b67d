#include "mounts_panel.h"

#include "panels/texts.h"

namespace editor {

using namespace qelm::datamodels::proxy;

namespace {

template <class Proxy>
Proxy& on(QAbstractItemModel& source, Proxy& proxy)
{
    proxy.setSourceModel(&source);
    return proxy;
}

// A branch can be read once it has a root.
SubtreeProxyModel& allOf(QAbstractItemModel& source, SubtreeProxyModel& branch)
{
    on(source, branch).setSourceRoot(QModelIndex());
    return branch;
}

} // namespace

MountsPanel::MountsPanel(const PanelContext& context)
    : m_mounts(context.content)
    , m_selection(&m_mounts)
    , m_words(new TokensPredicate({ContentMounts::NameRole, role("path"), role("kind")}))
    , m_filter(m_words)
    , m_filteredSelection(&on(m_mounts, m_filter), &m_selection)
    , m_wholePane(m_mounts, m_selection, ContentMounts::KeyRole)
    , m_branchPane(allOf(m_mounts, m_subtree), m_selection, ContentMounts::KeyRole)
    , m_filteredPane(m_filter, m_filteredSelection, ContentMounts::KeyRole)
{
    on(m_mounts, m_path);
    m_all.setModel(&m_mounts);
    m_passing.setModel(&m_filter);
    for (ModelElementsCounter* counter : {&m_all, &m_passing})
        connect(counter, &ModelElementsCounter::valueChanged, this, &Panel::statusChanged);
    connect(&m_selection, &QItemSelectionModel::selectionChanged, this, &Panel::statusChanged);
    connect(&m_selection, &QItemSelectionModel::currentChanged, this, &MountsPanel::followCurrent);
    connect(&m_mounts, &QAbstractItemModel::rowsInserted, this, &MountsPanel::queueRefresh);
    connect(&m_mounts, &QAbstractItemModel::rowsRemoved, this, &MountsPanel::queueRefresh);
}

MountsPanel::~MountsPanel() = default;

QString MountsPanel::status() const
{
    const QString all = counted(m_all.value(), "row", "rows");
    const int selected = m_selection.selectedIndexes().size();
    QString text = words().isEmpty() ? all : QStringLiteral("%1 of %2 pass").arg(m_passing.value()).arg(all);
    if (selected > 0)
        text += QStringLiteral(", %1 selected").arg(selected);
    return text;
}

// While the filter hides rows Qt moves the current one of its side, which is no choice of the user's.
void MountsPanel::setWords(const QString& words)
{
    if (m_words->text() == words)
        return;
    m_filteredSelection.setCurrentSyncEnabled(false);
    m_words->setText(words);
    m_filteredPane.rows()->setOpensAll(!needles().isEmpty());
    m_filteredSelection.setCurrentSyncEnabled(true);
    Q_EMIT wordsChanged();
    Q_EMIT statusChanged();
}

QStringList MountsPanel::needles() const
{
    return words().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void MountsPanel::setBranchOnly(bool branchOnly)
{
    if (m_isBranchOnly == branchOnly || (branchOnly && !hasCurrent()))
        return;
    m_isBranchOnly = branchOnly;
    m_subtree.setSourceRoot(branchOnly ? m_selection.currentIndex() : QModelIndex());
    Q_EMIT branchOnlyChanged();
}

void MountsPanel::goTo(int entry)
{
    const QPersistentModelIndex wanted = m_path.mapToSource(m_path.index(entry, 0));
    if (!wanted.isValid())
        setBranchOnly(false);
    m_selection.setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect);
    if (m_isBranchOnly)
        m_subtree.setSourceRoot(wanted);
}

void MountsPanel::followCurrent(const QModelIndex& current)
{
    m_path.setSourceTailIndex(current);
    Q_EMIT currentChanged();
}

// The branch and the path do not follow the structure of their source. Counters lose count where rows are
// removed from a mount, which goes on to show others in their place; a change of the mode makes them count
// anew.
void MountsPanel::queueRefresh()
{
    if (m_isRefreshQueued)
        return;
    m_isRefreshQueued = true;
    const auto refresh = [this] {
        m_isRefreshQueued = false;
        if (m_isBranchOnly && !m_subtree.sourceRoot().isValid())
            setBranchOnly(false);
        else
            m_subtree.setSourceRoot(m_subtree.sourceRoot());
        m_path.setSourceTailIndex(m_selection.currentIndex());
    };
    QMetaObject::invokeMethod(this, refresh, Qt::QueuedConnection);
}

QModelIndex MountsPanel::find(const QStringList& names) const
{
    QModelIndex found;
    for (const QString& name : names)
        found =
            m_mounts.match(m_mounts.index(0, 0, found), ContentMounts::NameRole, name, 1, Qt::MatchExactly)
                .value(0);
    return found;
}

std::vector<Panel::Shot> MountsPanel::shots()
{
    const auto filter = [this] {
        setWords(QStringLiteral("canal"));
        m_selection.setCurrentIndex(find({"project", "scripts", "canal", "weir.lua"}),
                                    QItemSelectionModel::ClearAndSelect);
        m_selection.select(find({"project", "models", "canal", "sluice.mesh"}), QItemSelectionModel::Select);
    };
    const auto branch = [this] {
        m_selection.setCurrentIndex(find({"project", "textures"}), QItemSelectionModel::ClearAndSelect);
        setBranchOnly(true);
    };
    return {{QString(), filter}, {QStringLiteral("branch"), branch}};
}

} // namespace editor
