#include "graph_panel.h"

namespace editor {

GraphPanel::GraphPanel(const PanelContext&)
{
    connect(&m_document, &GraphDocument::statusChanged, this, &Panel::statusChanged);
}

std::vector<Panel::Shot> GraphPanel::shots()
{
    const auto select = [this] {
        m_document.selectIn({240, 100, 20, 200}, false);
        m_document.toggle(m_document.model()->getEdges().constFirst());
    };
    const auto empty = [this] {
        m_document.selectAll();
        m_document.removeSelected();
    };
    return {{QString(), [] {}}, {QStringLiteral("selected"), select}, {QStringLiteral("empty"), empty}};
}

} // namespace editor
