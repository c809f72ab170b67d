#include "project_panel.h"

#include <QMetaObject>

namespace editor {
ProjectPanel::ProjectPanel(const PanelContext& context)
    : m_directory(context.content), m_rows(ProjectNode::PathRole), m_cursor(m_rows), m_kinds(m_tree)
{
    m_filter.setSourceModel(&m_tree);
    m_rows.setSourceModel(&m_filter);
    connect(&m_filter, &ProjectFilter::activeChanged, this, [this] { m_cursor.followFilter(m_filter.isActive()); });
    m_shown.setModel(&m_filter);
    connect(&m_shown, &ModelElementsCounter::valueChanged, this, &ProjectPanel::queueStatus);
    connect(&m_cursor, &TreeCursor::rowChanged, this, &ProjectPanel::showCurrent);
    reload();
}

ProjectPanel::~ProjectPanel() = default;

QString ProjectPanel::status() const
{
    if (!m_filter.isActive())
        return QStringLiteral("%1 rows").arg(totalRows());
    return QStringLiteral("%1 of %2 rows").arg(shownRows()).arg(totalRows());
}

QString ProjectPanel::emptyReason() const
{
    if (totalRows() == 0)
        return QStringLiteral("There are no files in\n%1").arg(m_directory);
    return QStringLiteral("None of the %1 rows passes the filters").arg(totalRows());
}

void ProjectPanel::reload()
{
    m_tree.load(m_directory);
    m_kinds.refresh();
    showCurrent();
}

void ProjectPanel::showCurrent()
{
    const QModelIndex index = m_filter.mapToSource(m_cursor.sourceIndex());
    m_details.show(static_cast<const ProjectNode*>(m_tree.nodeFromIndex(index, false)), m_directory);
}

// A change of the filter comes as many notifications; they are told once.
void ProjectPanel::queueStatus()
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

QModelIndex ProjectPanel::find(const QString& path) const
{
    const QModelIndexList found = m_filter.match(m_filter.index(0, 0), ProjectNode::PathRole, path, 1,
                                                 Qt::MatchExactly | Qt::MatchRecursive);
    return found.isEmpty() ? QModelIndex() : found.constFirst();
}

std::vector<Panel::Shot> ProjectPanel::shots()
{
    return {
        {QString(), [this] {
             for (const char* path : {"levels/copper_quay/lights.level", "models/boats/barge.mesh",
                                      "scripts/canal/weir.lua", "textures/crews/badge_towers.png"})
                 m_cursor.reveal(find(QLatin1String(path)));
         }},
        {QStringLiteral("filtered"), [this] {
             m_filter.text()->setText(QStringLiteral("ri"));
             m_filter.words()->setText(QStringLiteral("texture map level"));
             m_filter.setWordsType(1);
             m_cursor.reveal(find(QStringLiteral("textures/tiles/brick_ochre_AM.png")));
         }},
        {QStringLiteral("empty"), [this] { m_filter.text()->setText(QStringLiteral("lighthouse")); }},
    };
}

} // namespace editor
