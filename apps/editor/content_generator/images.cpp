#include "shapes.h"
#include "surface.h"
#include "writers.h"

namespace generator {
namespace {

struct NamedShape
{
    const char* name;
    Shape shape;
    QRgb colour;
};

QString pngPath(const char* folder, const char* name)
{
    return QStringLiteral("textures/%1/%2.png").arg(QLatin1String(folder), QLatin1String(name));
}

void writeTerrain(ContentFolder& content)
{
    const Surface surfaces[] = {
        {"marsh_grass", Pattern::Clay, 0xff2c3a1e, 0xff7d8f4a},
        {"mud_flat", Pattern::Clay, 0xff3b2f26, 0xff7c6450},
        {"river_bed", Pattern::Gravel, 0xff2b3133, 0xff8c948f},
        {"salt_pan", Pattern::Cracks, 0xff98948a, 0xffefece2},
        {"silt_bank", Pattern::Clay, 0xff5a5041, 0xffa3967c},
        {"towpath", Pattern::Gravel, 0xff4b4336, 0xffb4a688},
    };
    for (const Surface& surface : surfaces)
        content.write(pngPath("terrain", surface.name.c_str()), colourImage(surface, 160));
}

void writeProps(ContentFolder& content)
{
    const Surface surfaces[] = {
        {"barrel_side", Pattern::Planks, 0xff2f2117, 0xff9a6f42},
        {"bollard_iron", Pattern::Plates, 0xff1c1e21, 0xff6c737b},
        {"chain_links", Pattern::Weave, 0xff22252a, 0xff8b939c, 0.5, 1, 90},
        {"crate_lid", Pattern::Planks, 0xff443320, 0xffbb9561},
        {"fishing_net", Pattern::Weave, 0xff3a3427, 0xffb9ab83, 0.1, 0, 110},
        {"kiln_wall", Pattern::Bricks, 0xff2d1c16, 0xffb0613a},
        {"lock_gate", Pattern::Planks, 0xff1f2a22, 0xff66795f},
        {"rope_coil", Pattern::Weave, 0xff4b3f2a, 0xffcdb582},
        {"sail_canvas", Pattern::Weave, 0xff8f8468, 0xffe9dfc2},
        {"stair_slate", Pattern::Bricks, 0xff23282d, 0xff77838c},
    };
    for (const Surface& surface : surfaces)
        content.write(pngPath("props", surface.name.c_str()), colourImage(surface, 64));
}

void writeInterface(ContentFolder& content)
{
    const NamedShape icons[] = {
        {"icon_anchor", either(ring(0.55, 0.16), box(0.08, 0.75)), 0xffd9e2ec},
        {"icon_barge", both(disc(0.8, 0, -0.35), box(0.8, 0.3, 0, 0.2)), 0xffc9a26b},
        {"icon_bell", either(both(disc(0.6), box(0.7, 0.4, 0, -0.2)), disc(0.15, 0, 0.5)), 0xffe8c468},
        {"icon_brick", without(box(0.75, 0.4), box(0.04, 0.4)), 0xffc77a4d},
        {"icon_clay", either(disc(0.5, -0.2, 0.2), disc(0.35, 0.35, -0.05)), 0xffb98a63},
        {"icon_crew", either(disc(0.3, 0, -0.4), both(disc(0.65, 0, 0.65), box(0.65, 0.45, 0, 0.45))), 0xff9fb7c9},
        {"icon_flag", either(box(0.06, 0.8, -0.5), box(0.45, 0.28, 0, -0.5)), 0xffd8574a},
        {"icon_gate", without(box(0.7, 0.7), either(box(0.08, 0.7), box(0.7, 0.06))), 0xff8aa585},
        {"icon_kiln", without(both(disc(0.8, 0, 0.1), box(0.8, 0.7)), box(0.22, 0.35, 0, 0.45)), 0xffc96b3c},
        {"icon_lantern", either(diamond(0.6), box(0.3, 0.06, 0, -0.7)), 0xfff1c75b},
        {"icon_rudder", without(ring(0.6, 0.18), box(0.1, 0.9)), 0xffb9c4cf},
        {"icon_weir", either(box(0.8, 0.08, 0, -0.4), either(box(0.8, 0.08), box(0.8, 0.08, 0, 0.4))), 0xff74a7c6},
        {"cursor_move", either(box(0.08, 0.8), box(0.8, 0.08)), 0xffffffff},
        {"cursor_place", without(diamond(0.8), diamond(0.5)), 0xffffffff},
        {"marker_goal", triangle(0.85), 0xff7fc66b},
        {"marker_hazard", without(triangle(0.85), either(box(0.07, 0.22, 0, -0.05), disc(0.09, 0, 0.32))), 0xffe2a13c},
    };
    for (const NamedShape& icon : icons)
        content.write(pngPath("ui", icon.name), iconImage(icon.shape, icon.colour, 48));
}

void writeEffects(ContentFolder& content)
{
    content.write(pngPath("effects", "ember"), glowImage("ember", 0xfffff0b0, 0xffe0561b, 0.2, 32));
    content.write(pngPath("effects", "kiln_smoke"), glowImage("kiln_smoke", 0xff9a948c, 0xff45413d, 0.9, 64));
    content.write(pngPath("effects", "lantern_glow"), glowImage("lantern_glow", 0xffffe9a8, 0xffd99a2b, 0, 64));
    content.write(pngPath("effects", "marsh_mist"), glowImage("marsh_mist", 0xffd5dfdc, 0xff8ea09b, 0.8, 64));
    content.write(pngPath("effects", "spray"), glowImage("spray", 0xffffffff, 0xff8fb8cf, 0.6, 32));
    content.write(pngPath("effects", "wake"), iconImage(ring(0.7, 0.12), 0xffcfe3ec, 64));
}

void writeCrews(ContentFolder& content)
{
    const NamedShape crews[] = {
        {"badge_herons", either(disc(0.25, 0.1, -0.45), box(0.07, 0.6, 0, 0.2)), 0xff6fa8dc},
        {"badge_kilnfolk", without(disc(0.75), triangle(0.5)), 0xffd9773a},
        {"badge_lockkeepers", without(box(0.65, 0.65), box(0.1, 0.65)), 0xff7fae7a},
        {"badge_saltrakers", either(box(0.7, 0.08, 0, -0.4), box(0.06, 0.75)), 0xffe6e1d0},
        {"badge_towers", without(diamond(0.85), disc(0.3)), 0xffb58bd0},
    };
    for (const NamedShape& crew : crews)
        content.write(pngPath("crews", crew.name), iconImage(crew.shape, crew.colour, 64));
}

void writeSkies(ContentFolder& content)
{
    struct Sky
    {
        const char* name;
        QRgb zenith;
        QRgb horizon;
    };
    for (const Sky& sky : {Sky{"sky_dawn", 0xff34415e, 0xffe9b08a}, Sky{"sky_noon", 0xff3f78ad, 0xffcfe2ea},
                           Sky{"sky_rain", 0xff3a424a, 0xff8b959b}}) {
        QImage image(128, 64, QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const double v = y / 63.0;
                const double clouds = cloud(sky.name, x / 128.0, v, 4);
                const double amount = static_cast<int>((v * 0.8 + clouds * 0.3) * 40) / 40.0;
                image.setPixel(x, y, mix(sky.zenith, sky.horizon, amount > 1 ? 1 : amount));
            }
        }
        content.write(pngPath("skies", sky.name), image);
    }
}

} // namespace

void writeImages(ContentFolder& content)
{
    writeTerrain(content);
    writeProps(content);
    writeInterface(content);
    writeEffects(content);
    writeCrews(content);
    writeSkies(content);
}

} // namespace generator
