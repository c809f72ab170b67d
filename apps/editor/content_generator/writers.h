#pragma once

#include "content_folder.h"

namespace generator {

// One function a part of the game; each writes the same bytes whenever it runs.

void writeAtlasTextures(ContentFolder& content); ///< textures/tiles: triples for the texture atlas, and the atlas
void writeImages(ContentFolder& content);        ///< textures: everything else that is an image
void writeLights(ContentFolder& content);        ///< textures: cube maps, real light, heights and what else is no PNG of 8 bits
void writeMaps(ContentFolder& content);          ///< scripts/arena_defs
void writeLevels(ContentFolder& content);        ///< levels
void writeScenes(ContentFolder& content);        ///< the scene of one level, for the scene panel
void writeModels(ContentFolder& content);        ///< models
void writeMaterials(ContentFolder& content);     ///< materials
void writeTexts(ContentFolder& content);         ///< localisation, sounds, effects, layouts

} // namespace generator
