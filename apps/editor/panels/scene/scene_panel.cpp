#include "scene_panel.h"

#include "level_map.h"
#include "panels/texts.h"

#include <QtQml>

namespace editor {

ScenePanel::ScenePanel(const PanelContext& context)
    : m_document(LevelDocument::findScene(context.content)), m_outliner(m_document)
{
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
    return {{QString(), [] {}}};
}

} // namespace editor
