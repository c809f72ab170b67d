#include "panel.h"

namespace editor {

Panel::Panel(QObject* parent) : QObject(parent) {}

std::vector<Panel::Shot> Panel::shots()
{
    return {{QString(), [] {}}};
}

} // namespace editor
