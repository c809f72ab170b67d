#pragma once

#include "panel.h"

#include <memory>
#include <vector>

namespace editor {

/// What a panel is made from.
struct PanelContext
{
    QString content; ///< the project's directory
};

/// One tab of the editor. The texts are literals.
struct PanelEntry
{
    const char* name;  ///< for the command line and file names
    const char* title; ///< on the tab
    const char* icon;  ///< a file of icons/, without its extension
    const char* url;   ///< the QML, whose root has a property `panel`
    std::unique_ptr<Panel> (*create)(const PanelContext& context);
};

/// All panels, in the order of their tabs.
const std::vector<PanelEntry>& panelTable();

} // namespace editor
