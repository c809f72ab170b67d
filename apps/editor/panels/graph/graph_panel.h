#pragma once

#include "graph_document.h"
#include "panels/panel_table.h"

namespace editor {

/// The panel "Graph": a material as boxes and curves, and the palette that new nodes come from.
class GraphPanel : public Panel
{
    Q_OBJECT
    Q_PROPERTY(editor::GraphDocument* document READ document CONSTANT)

public:
    explicit GraphPanel(const PanelContext& context);

    QString status() const override { return m_document.status(); }
    std::vector<Shot> shots() override;

    GraphDocument* document() { return &m_document; }

private:
    GraphDocument m_document;
};

} // namespace editor
