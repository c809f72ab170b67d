#include "history_panel.h"

namespace editor {

HistoryPanel::HistoryPanel(const PanelContext&)
{
    connect(document(), &SceneDocument::statusChanged, this, &Panel::statusChanged);
}

HistoryPanel::~HistoryPanel() = default;

} // namespace editor
