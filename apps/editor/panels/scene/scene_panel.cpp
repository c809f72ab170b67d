#include "scene_panel.h"

#include "level_map.h"
#include "panels/texts.h"

#include <QtQml>

namespace editor {

ScenePanel::ScenePanel(const PanelContext& context)
    : m_document(LevelDocument::findScene(context.content)), m_outliner(m_document), m_form(m_document, m_outliner)
{
    m_form.setContent(context.content);
    static const int mapType = qmlRegisterType<LevelMap>("Editor.Scene", 1, 0, "LevelMap");
    Q_UNUSED(mapType)
    connect(&m_outliner, &SceneOutliner::selectionChanged, this, &Panel::statusChanged);
    connect(m_document.history(), &Ozy::ChangesController::indexChanged, this, &Panel::statusChanged);
    connect(m_document.history(), &Ozy::ChangesController::cleanChanged, this, &Panel::statusChanged);
    connect(&m_document, &LevelDocument::levelChanged, this, &Panel::statusChanged);
}

ScenePanel::~ScenePanel() = default;

QString ScenePanel::status() const
{
    int objects = -1; // but for the level itself
    visitObjects(m_document.level(), [&objects](const LevelObject&) { ++objects; });
    QString text = counted(objects, "object", "objects");
    if (m_outliner.selectedCount() > 0)
        text += QStringLiteral(", %1 selected").arg(m_outliner.selectedCount());
    return text + (isModified() ? QStringLiteral(", modified") : QStringLiteral(", saved"));
}

std::vector<Panel::Shot> ScenePanel::shots()
{
    const auto rowOf = [this](const char* name) {
        const QModelIndex first = m_outliner.rows()->index(0, 0);
        const QModelIndexList found =
            m_outliner.rows()->match(first, Qt::DisplayRole, QLatin1String(name), 1, Qt::MatchExactly);
        return found.isEmpty() ? 0 : found.constFirst().row();
    };
    const auto edit = [this, rowOf] {
        m_outliner.toggle(rowOf("Boats"));
        m_outliner.press(rowOf("Boats") + 2, Qt::NoModifier);
        m_form.rows()->write(m_form.rows()->find(QStringLiteral("heading")), 135);
        m_form.rows()->write(m_form.rows()->find(QStringLiteral("tags")) + 1, QStringLiteral("ferry"));
        m_outliner.frame(rowOf("Boats"));
    };
    const auto selectSeveral = [this, rowOf] {
        m_outliner.toggle(rowOf("Boats"));
        m_outliner.toggle(rowOf("Lamps"));
        m_outliner.press(rowOf("Lamps") + 1, Qt::NoModifier);
        m_outliner.press(rowOf("Lamps") + 6, Qt::ShiftModifier);
        m_outliner.frame(rowOf("Lamps"));
    };
    return {{QString(), edit}, {QStringLiteral("several"), selectSeveral}};
}

} // namespace editor
