#pragma once

#include "panels/panel_table.h"
#include "scene_form.h"

namespace editor {

/// The panel "Scene": a level as an outliner, from above, and what is selected in a form, with the history of its
/// edits.
class ScenePanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::LevelDocument* document READ document CONSTANT)
    Q_PROPERTY(editor::SceneOutliner* outliner READ outliner CONSTANT)
    Q_PROPERTY(editor::SceneForm* form READ form CONSTANT)
    Q_PROPERTY(bool hasScene READ hasScene CONSTANT)

public:
    explicit ScenePanel(const PanelContext& context);
    ~ScenePanel() override;

    QString status() const override;
    bool isModified() const override { return !m_document.history()->isClean(); }
    std::vector<Shot> shots() override;

    LevelDocument* document() { return &m_document; }
    SceneOutliner* outliner() { return &m_outliner; }
    SceneForm* form() { return &m_form; }
    /// Whether the project has a level with a scene.
    bool hasScene() const { return !m_document.path().isEmpty(); }

private:
    LevelDocument m_document;
    SceneOutliner m_outliner;
    SceneForm m_form;
};

} // namespace editor
