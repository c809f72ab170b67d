#include "panel_table.h"

#include "project/project_panel.h"

namespace editor {
namespace {

template <class P>
std::unique_ptr<Panel> make(const PanelContext& context)
{
    return std::make_unique<P>(context);
}

} // namespace

const std::vector<PanelEntry>& panelTable()
{
    static const std::vector<PanelEntry> table{
        {"project", "Project", "folder-tree", "qrc:/panels/project/ProjectPanel.qml", &make<ProjectPanel>},
    };
    return table;
}

} // namespace editor
