#include "random.h"
#include "writers.h"

#include <cmath>
#include <vector>

namespace generator {
namespace {

struct Model
{
    const char* path;
    const char* material;
    int sides;   ///< of the cross-section
    int rings;   ///< along the height
    double wide; ///< metres
    double tall; ///< metres
};

const std::vector<Model> models{
    {"boats/barge", "hull_tar", 6, 4, 3.2, 1.4},          {"boats/dinghy", "deck_planks", 6, 3, 1.2, 0.6},
    {"boats/mast", "deck_planks", 5, 4, 0.2, 6.0},        {"boats/rudder", "hull_tar", 4, 2, 0.4, 1.1},
    {"boats/sail", "sail_canvas", 4, 3, 2.4, 4.5},        {"buildings/boathouse", "roof_blue", 4, 4, 6.0, 4.2},
    {"buildings/drying_shed", "reed_mat", 4, 3, 5.0, 3.0}, {"buildings/kiln", "brick_soot", 8, 5, 3.5, 5.0},
    {"buildings/lock_house", "brick_ochre", 4, 4, 4.0, 4.5}, {"buildings/watchtower", "brick_ochre", 6, 6, 2.5, 9.0},
    {"canal/footbridge", "deck_planks", 4, 3, 4.0, 1.0},  {"canal/lock_gate", "lock_gate", 4, 3, 2.8, 3.0},
    {"canal/sluice", "grate_iron", 4, 2, 1.6, 1.8},       {"canal/weir", "moss_stone", 5, 3, 5.0, 1.2},
    {"props/barrel", "barrel_side", 8, 4, 0.4, 0.9},      {"props/brick_stack", "brick_ochre", 4, 3, 0.8, 0.8},
    {"props/crate", "crate_lid", 4, 2, 0.6, 0.6},         {"props/lantern", "copper_plate", 6, 4, 0.2, 0.5},
    {"props/rope_coil", "rope_coil", 8, 3, 0.5, 0.3},     {"quay/bollard", "bollard_iron", 8, 4, 0.3, 0.7},
    {"quay/crane", "copper_plate", 4, 6, 1.0, 7.0},       {"quay/steps", "stair_slate", 4, 5, 2.0, 1.6},
};

// The cosine of a turn's quarter steps between regular points, without calling the mathematics library.
struct Point
{
    double x = 1;
    double y = 0;
};

std::vector<Point> corners(int sides)
{
    static const double cosines[] = {0, 0, 0, -0.5, 0, 0.309017, 0.5, 0, 0.707107};
    const double cosine = cosines[sides];
    const double sine = std::sqrt(1 - cosine * cosine);
    std::vector<Point> points{Point{}};
    for (int i = 1; i < sides; ++i) {
        const Point& p = points.back();
        points.push_back({p.x * cosine - p.y * sine, p.x * sine + p.y * cosine});
    }
    return points;
}

QString number(double value)
{
    const QString text = QString::number(value, 'f', 3);
    return text == QLatin1String("-0.000") ? QStringLiteral("0.000") : text;
}

QString meshText(const Model& model)
{
    Random random(model.path);
    const std::vector<Point> section = corners(model.sides);
    QString vertices;
    for (int level = 0; level < model.rings; ++level) {
        const double radius = model.wide * random.between(60, 100) / 200.0;
        const double height = model.tall * level / (model.rings - 1);
        for (const Point& p : section)
            vertices += QStringLiteral("v %1 %2 %3\n").arg(number(p.x * radius), number(height), number(p.y * radius));
    }
    QString faces;
    for (int level = 0; level + 1 < model.rings; ++level) {
        for (int side = 0; side < model.sides; ++side) {
            const int a = level * model.sides + side;
            const int b = level * model.sides + (side + 1) % model.sides;
            faces += QStringLiteral("q %1 %2 %3 %4\n").arg(a).arg(b).arg(b + model.sides).arg(a + model.sides);
        }
    }
    return QStringLiteral("mesh 1\nmaterial %1\nvertices %2\n%3faces %4\n%5")
        .arg(QLatin1String(model.material)).arg(model.sides * model.rings).arg(vertices)
        .arg(model.sides * (model.rings - 1)).arg(faces);
}

struct Material
{
    const char* name;
    const char* texture;
    const char* shader;
};

const std::vector<Material> materials{
    {"barrel_side", "props/barrel_side", "opaque"},    {"bollard_iron", "props/bollard_iron", "metal"},
    {"brick_ochre", "tiles/brick_ochre", "atlas"},     {"brick_soot", "tiles/brick_soot", "atlas"},
    {"clay_dry", "tiles/clay_dry", "atlas"},           {"clay_wet", "tiles/clay_wet", "atlas"},
    {"copper_plate", "tiles/copper_plate", "atlas"},   {"crate_lid", "props/crate_lid", "opaque"},
    {"deck_planks", "tiles/deck_planks", "atlas"},     {"fishing_net", "props/fishing_net", "cutout"},
    {"grate_iron", "tiles/grate_iron", "atlas"},       {"hull_tar", "tiles/hull_tar", "atlas"},
    {"kiln_smoke", "effects/kiln_smoke", "additive"},  {"lantern_glow", "effects/lantern_glow", "additive"},
    {"lock_gate", "props/lock_gate", "opaque"},        {"marsh_mist", "effects/marsh_mist", "blended"},
    {"moss_stone", "tiles/moss_stone", "atlas"},       {"reed_mat", "tiles/reed_mat", "atlas"},
    {"roof_blue", "tiles/roof_blue", "atlas"},         {"roof_red", "tiles/roof_red", "atlas"},
    {"rope_coil", "props/rope_coil", "opaque"},        {"sail_canvas", "props/sail_canvas", "cutout"},
    {"stair_slate", "props/stair_slate", "opaque"},    {"water_canal", "terrain/river_bed", "water"},
};

} // namespace

void writeModels(ContentFolder& content)
{
    for (const Model& model : models)
        content.write(QStringLiteral("models/%1.mesh").arg(QLatin1String(model.path)), meshText(model));
}

void writeMaterials(ContentFolder& content)
{
    for (const Material& material : materials) {
        Random random(material.name);
        const bool tile = QLatin1String(material.shader) == QLatin1String("atlas");
        const QString texture = QStringLiteral("textures/%1%2.png")
                                    .arg(QLatin1String(material.texture), QLatin1String(tile ? "_AM" : ""));
        content.write(QStringLiteral("materials/%1.mat").arg(QLatin1String(material.name)),
                      QStringLiteral("shader = %1\ntexture = %2\nroughness = 0.%3\ntwoSided = %4\n")
                          .arg(QLatin1String(material.shader), texture).arg(random.between(10, 95))
                          .arg(QLatin1String(random.between(0, 3) ? "no" : "yes")));
    }
}

} // namespace generator
