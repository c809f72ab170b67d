#pragma once

#include "panels/panel_table.h"
#include "scene_document.h"

namespace editor {

/// The panel "Services": the objects of the sample scene, the current one in a form, and the history beside
/// it.
class ServicesPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::SceneDocument* document READ document CONSTANT)

public:
    explicit ServicesPanel(const PanelContext& context);
    ~ServicesPanel() override;

    QString status() const override { return m_document->status(); }
    std::vector<Shot> shots() override;

    SceneDocument* document() const { return m_document.get(); }

private:
    void go(const QString& name);

    std::shared_ptr<SceneDocument> m_document = SceneDocument::shared();
};

} // namespace editor
