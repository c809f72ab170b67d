#pragma once

#include "panels/panel_table.h"
#include "panels/services/scene_document.h"

namespace editor {

/// The panel "History": the steps of the sample scene, which it shares with the panel "Services".
class HistoryPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::SceneDocument* document READ document CONSTANT)

public:
    explicit HistoryPanel(const PanelContext& context);
    ~HistoryPanel() override;

    QString status() const override { return m_document->status(); }

    SceneDocument* document() const { return m_document.get(); }

private:
    std::shared_ptr<SceneDocument> m_document = SceneDocument::shared();
};

} // namespace editor
