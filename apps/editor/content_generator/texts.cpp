#include "game.h"
#include "random.h"
#include "writers.h"

#include <vector>

namespace generator {
namespace {

struct Language
{
    const char* code;
    const char* newGame;
    const char* options;
    const char* leave;
    const char* start;
    const char* won;
};

const std::vector<Language> languages{
    {"de", "Neues Spiel", "Einstellungen", "Verlassen", "Leinen los!", "Gewonnen"},
    {"en", "New game", "Options", "Leave", "Cast off!", "Won"},
    {"fr", "Nouvelle partie", "Réglages", "Quitter", "Larguez les amarres !", "Gagné"},
    {"pl", "Nowa gra", "Ustawienia", "Wyjdź", "Odcumować!", "Wygrana"},
};

void writeLocalisation(ContentFolder& content)
{
    for (const Language& language : languages) {
        const QString folder = QStringLiteral("localisation/%1/").arg(QLatin1String(language.code));
        content.write(folder + QLatin1String("menu.loc"),
                      QStringLiteral("menu/new_game = %1\nmenu/options = %2\nmenu/leave = %3\n")
                          .arg(QString::fromUtf8(language.newGame), QString::fromUtf8(language.options),
                               QString::fromUtf8(language.leave)));
        content.write(folder + QLatin1String("race.loc"),
                      QStringLiteral("race/start = %1\nrace/won = %2\n")
                          .arg(QString::fromUtf8(language.start), QString::fromUtf8(language.won)));
        QString titles;
        for (const Arena& arena : arenas)
            titles += QStringLiteral("%1/title = %2\n").arg(QLatin1String(arena.name), QLatin1String(arena.title));
        content.write(folder + QLatin1String("arenas.loc"), titles);
    }
    content.write(QStringLiteral("localisation/de/strassenschilder.loc"),
                  QStringLiteral("schild/schleuse = Schleuse\nschild/kai = Zum Kai\nschild/ziegelei = Zur Ziegelei\n"));
}

void writeSounds(ContentFolder& content)
{
    struct Bank
    {
        const char* name;
        std::vector<const char*> sounds;
    };
    const std::vector<Bank> banks{
        {"ambience", {"gulls_far", "marsh_wind", "reeds_rustle", "water_lap", "frogs_evening"}},
        {"boats", {"hull_bump", "hull_scrape", "rope_strain", "sail_flap", "pole_splash"}},
        {"canal", {"gate_open", "gate_close", "sluice_rush", "weir_roar"}},
        {"crews", {"call_heave", "call_port", "call_starboard", "cheer_short", "cheer_long"}},
        {"interface", {"click", "confirm", "refuse", "tab", "type"}},
        {"kilns", {"fire_crackle", "door_clang", "brick_stack", "clay_slap"}},
        {"music", {"menu_theme", "race_calm", "race_close", "victory"}},
    };
    for (const Bank& bank : banks) {
        Random random(bank.name);
        QString text = QStringLiteral("# sound  volume  variants\n");
        for (const char* sound : bank.sounds)
            text += QStringLiteral("%1 0.%2 %3\n").arg(QLatin1String(sound), -16).arg(random.between(30, 99))
                        .arg(random.between(1, 5));
        content.write(QStringLiteral("sounds/%1.bank").arg(QLatin1String(bank.name)), text);
    }
}

void writeEffects(ContentFolder& content)
{
    for (const char* name : {"ember", "kiln_smoke", "lantern_glow", "marsh_mist", "spray", "wake"}) {
        Random random(name);
        content.write(QStringLiteral("effects/%1.fx").arg(QLatin1String(name)),
                      QStringLiteral("texture = textures/effects/%1.png\nrate = %2\n"
                                     "life = %3.%4\nsize = 0.%5 .. 1.%6\n")
                          .arg(QLatin1String(name)).arg(random.between(2, 60)).arg(random.between(0, 4))
                          .arg(random.between(1, 9)).arg(random.between(1, 9)).arg(random.between(0, 9)));
    }
}

void writeLayouts(ContentFolder& content)
{
    struct Layout
    {
        const char* name;
        std::vector<const char*> parts;
    };
    const std::vector<Layout> layouts{
        {"crew_select", {"badge_herons", "badge_kilnfolk", "badge_lockkeepers", "badge_saltrakers", "badge_towers"}},
        {"main_menu", {"icon_barge", "icon_lantern"}},
        {"minimap", {"marker_goal", "marker_hazard", "icon_gate", "icon_weir"}},
        {"pause", {"icon_anchor"}},
        {"race_hud", {"icon_brick", "icon_clay", "icon_rudder", "icon_bell"}},
        {"results", {"icon_flag", "icon_crew"}},
    };
    for (const Layout& layout : layouts) {
        QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<layout name=\"%1\">\n")
                          .arg(QLatin1String(layout.name));
        int x = 16;
        for (const char* part : layout.parts) {
            xml += QStringLiteral("  <image name=\"%1\" x=\"%2\" y=\"16\"/>\n").arg(QLatin1String(part)).arg(x);
            x += 64;
        }
        content.write(QStringLiteral("interface/%1.layout").arg(QLatin1String(layout.name)),
                      xml + QLatin1String("</layout>\n"));
    }
}

} // namespace

void writeTexts(ContentFolder& content)
{
    writeLocalisation(content);
    writeSounds(content);
    writeEffects(content);
    writeLayouts(content);
}

} // namespace generator
