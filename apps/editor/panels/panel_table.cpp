#include "panel_table.h"

#include "assets/assets_panel.h"
#include "atlas/atlas_panel.h"
#include "files/files_panel.h"
#include "graph/graph_panel.h"
#include "history/history_panel.h"
#include "image/image_panel.h"
#include "library/library_panel.h"
#include "mounts/mounts_panel.h"
#include "project/project_panel.h"
#include "scene/scene_panel.h"
#include "services/services_panel.h"

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
        {"library", "Library", "library", "qrc:/panels/library/LibraryPanel.qml", &make<LibraryPanel>},
        {"assets", "Assets", "grid", "qrc:/panels/assets/AssetsPanel.qml", &make<AssetsPanel>},
        {"image", "Image", "image", "qrc:/panels/image/ImagePanel.qml", &make<ImagePanel>},
        {"atlas", "Atlas", "atlas", "qrc:/panels/atlas/AtlasPanel.qml", &make<AtlasPanel>},
        {"mounts", "Mounts", "mounts", "qrc:/panels/mounts/MountsPanel.qml", &make<MountsPanel>},
        {"files", "Files", "search", "qrc:/panels/files/FilesPanel.qml", &make<FilesPanel>},
        {"scene", "Scene", "level", "qrc:/panels/scene/ScenePanel.qml", &make<ScenePanel>},
        {"services", "Services", "services", "qrc:/panels/services/ServicesPanel.qml", &make<ServicesPanel>},
        {"history", "History", "history", "qrc:/panels/history/HistoryPanel.qml", &make<HistoryPanel>},
        {"graph", "Graph", "graph", "qrc:/panels/graph/GraphPanel.qml", &make<GraphPanel>},
    };
    return table;
}

} // namespace editor
