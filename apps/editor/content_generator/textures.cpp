#include "surface.h"
#include "writers.h"

namespace generator {
namespace {

constexpr int fullSize = 128;
constexpr int occlusionSize = fullSize / 2; // the atlas takes this class at half the side of the others
constexpr unsigned tileSize = fullSize / 2; // and all of them at half of what their files have
constexpr unsigned atlasColumns = 4;
constexpr unsigned atlasRows = 4; // two slots stay free

const Surface surfaces[] = {
    {"brick_ochre", Pattern::Bricks, 0xff4a3326, 0xffc9824a, 0.2},
    {"brick_soot", Pattern::Bricks, 0xff1f1d1c, 0xff6d625b, 0.25},
    {"clay_dry", Pattern::Cracks, 0xff51382a, 0xffb98a63, 0.1},
    {"clay_wet", Pattern::Clay, 0xff3c2a22, 0xff8a5e45, 0.8},
    {"copper_plate", Pattern::Plates, 0xff2e4a42, 0xffc07d4f, 0.7, 0.9},
    {"deck_planks", Pattern::Planks, 0xff33261b, 0xffa98358, 0.3},
    {"gravel_river", Pattern::Gravel, 0xff34383a, 0xffa8aca6, 0.4},
    {"grate_iron", Pattern::Weave, 0xff1b1d20, 0xff7f8790, 0.5, 1, 70},
    {"hull_tar", Pattern::Planks, 0xff111214, 0xff4a4642, 0.6},
    {"moss_stone", Pattern::Cracks, 0xff28351f, 0xff83905d, 0.15},
    {"reed_mat", Pattern::Weave, 0xff4d4420, 0xffc6b36a, 0.15},
    {"roof_blue", Pattern::RoofTiles, 0xff1d2b3b, 0xff6f93b0, 0.5},
    {"roof_red", Pattern::RoofTiles, 0xff3e1a15, 0xffbf5b45, 0.45},
    {"salt_crust", Pattern::Cracks, 0xff8d8a80, 0xfff2efe6, 0.35},
};

QString pathOf(const Surface& surface, const char* type)
{
    return QStringLiteral("textures/tiles/%1_%2.png").arg(QString::fromStdString(surface.name), QLatin1String(type));
}

void writeAtlas(ContentFolder& content, const char* type, unsigned side)
{
    Ozy::Fennel::AtlasTexture::AtlasData data;
    data.leadingFlag = 1;
    data.width = atlasColumns * side;
    data.height = atlasRows * side;
    data.fullSizeFlag = side == tileSize ? 1 : 0;
    for (const Surface& surface : surfaces) {
        const auto slot = static_cast<unsigned>(data.tiles.size());
        const unsigned left = slot % atlasColumns * side;
        const unsigned top = slot / atlasColumns * side;
        data.tiles.push_back({{left, left + side, top, top + side}, pathOf(surface, type).toStdString()});
    }
    content.write(QStringLiteral("textures/tiles/quayside_%1.atlas").arg(QLatin1String(type)), data);
}

} // namespace

void writeAtlasTextures(ContentFolder& content)
{
    for (const Surface& surface : surfaces) {
        content.write(pathOf(surface, "AM"), colourImage(surface, fullSize));
        content.write(pathOf(surface, "GBMT"), glossImage(surface, fullSize));
        content.write(pathOf(surface, "MAO"), occlusionImage(surface, occlusionSize));
    }
    writeAtlas(content, "AM", tileSize);
    writeAtlas(content, "GBMT", tileSize);
    writeAtlas(content, "MAO", tileSize / 2);
}

} // namespace generator
