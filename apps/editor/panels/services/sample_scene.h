#pragma once

#include "scene_objects.h"

namespace editor {

/// The scene that the editor opens with: a canal basin with two gates and three barges, and the lamps on
/// them.
std::shared_ptr<Basin> makeSampleScene();

/// A new object of the class that has this icon, with the values of its class; null for none.
std::shared_ptr<SceneNode> makeSceneNode(const std::string& icon);

} // namespace editor
