#include "game.h"
#include "random.h"
#include "writers.h"

#include <vector>

namespace generator {
namespace {

QString tenths(int value)
{
    return QString::number(value / 10.0, 'f', 1);
}

QString arenaXml(const Arena& arena)
{
    Random random(arena.name);
    QString xml = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                 "<arena name=\"%1\" title=\"#arenas:%1/title\">\n"
                                 "  <size width=\"%2\" height=\"%3\"/>\n"
                                 "  <crews count=\"%4\" members=\"%5\"/>\n")
                      .arg(QLatin1String(arena.name)).arg(arena.width).arg(arena.height).arg(arena.crews)
                      .arg(arena.crews > 2 ? 3 : 4);
    if (arena.seconds > 0)
        xml += QStringLiteral("  <timeLimit seconds=\"%1\"/>\n").arg(arena.seconds);
    xml += QStringLiteral("  <weather sky=\"textures/skies/%1.png\" wind=\"%2\" tide=\"%3\"/>\n  <gates>\n")
               .arg(QLatin1String(arena.sky), tenths(random.between(5, 80)), tenths(random.between(-6, 9)));
    for (int gate = 1, count = random.between(3, 7); gate <= count; ++gate) {
        xml += QStringLiteral("    <gate id=\"%1\" x=\"%2\" y=\"%3\" opens=\"%4\" closes=\"%5\"/>\n")
                   .arg(gate).arg(random.between(20, arena.width - 20)).arg(random.between(20, arena.height - 20))
                   .arg(random.between(1, 6) * 10).arg(random.between(7, 14) * 10);
    }
    xml += QLatin1String("  </gates>\n  <moorings>\n");
    for (int crew = 1; crew <= arena.crews; ++crew) {
        xml += QStringLiteral("    <mooring crew=\"%1\" x=\"%2\" y=\"%3\" heading=\"%4\"/>\n")
                   .arg(crew).arg(random.between(10, arena.width - 10)).arg(random.between(10, arena.height - 10))
                   .arg(random.between(0, 23) * 15);
    }
    return xml + QLatin1String("  </moorings>\n</arena>\n");
}

struct ActorKind
{
    const char* type;
    const char* model;
    const char* component;
};

const std::vector<ActorKind> actorKinds{
    {"Barge", "models/boats/barge.mesh", "Buoyancy"},     {"Bollard", "models/quay/bollard.mesh", "Collider"},
    {"Crane", "models/quay/crane.mesh", "Winch"},         {"Gate", "models/canal/lock_gate.mesh", "Hinge"},
    {"Kiln", "models/buildings/kiln.mesh", "Fire"},       {"Lantern", "models/props/lantern.mesh", "Light"},
    {"Shed", "models/buildings/drying_shed.mesh", "Store"}, {"Weir", "models/canal/weir.mesh", "Current"},
};

QString actorLine(Random& random, const Arena& arena, int number)
{
    const ActorKind& kind = random.pick(actorKinds);
    return QStringLiteral("    {\"id\": %1, \"name\": \"%2 %1\", \"type\": \"%2\", \"model\": \"%3\", "
                          "\"position\": [%4, %5, %6], \"heading\": %7, \"enabled\": %8, \"components\": [\"%9\"]}")
        .arg(number).arg(QLatin1String(kind.type), QLatin1String(kind.model))
        .arg(tenths(random.between(0, arena.width * 10)), tenths(random.between(0, arena.height * 10)),
             tenths(random.between(-20, 60)))
        .arg(random.between(0, 23) * 15)
        .arg(QLatin1String(random.between(0, 9) > 0 ? "true" : "false"), QLatin1String(kind.component));
}

QString levelJson(const Arena& arena)
{
    Random random(std::string(arena.name) + "/level");
    QStringList actors;
    for (int number = 1, count = random.between(30, 60); number <= count; ++number)
        actors << actorLine(random, arena, number);
    return QStringLiteral("{\n  \"level\": \"%1\",\n  \"size\": [%2, %3],\n  \"actors\": [\n%4\n  ]\n}\n")
        .arg(QLatin1String(arena.name)).arg(arena.width).arg(arena.height).arg(actors.join(QLatin1String(",\n")));
}

QString lightsJson(const Arena& arena)
{
    Random random(std::string(arena.name) + "/lights");
    QStringList lights;
    for (int number = 1, count = random.between(6, 14); number <= count; ++number) {
        lights << QStringLiteral("    {\"name\": \"lamp %1\", \"position\": [%2, %3, %4], \"colour\": \"#%5\", "
                                 "\"reach\": %6}")
                      .arg(number).arg(random.between(0, arena.width)).arg(random.between(0, arena.height))
                      .arg(tenths(random.between(15, 80)),
                           random.pick(std::vector<QString>{QStringLiteral("ffd9a0"), QStringLiteral("ffe9c8"),
                                                            QStringLiteral("a8c8ff")}))
                      .arg(random.between(4, 24));
    }
    return QStringLiteral("{\n  \"level\": \"%1\",\n  \"lights\": [\n%2\n  ]\n}\n")
        .arg(QLatin1String(arena.name), lights.join(QLatin1String(",\n")));
}

QString waterText(const Arena& arena)
{
    Random random(std::string(arena.name) + "/water");
    QString text = QStringLiteral("# canal  depth  width  current\n");
    for (const char* canal : {"main", "feeder", "tail", "basin"}) {
        text += QStringLiteral("%1 %2 %3 %4\n")
                    .arg(QLatin1String(canal), -7).arg(tenths(random.between(12, 60)), 6)
                    .arg(random.between(6, 40), 6).arg(tenths(random.between(-15, 15)), 8);
    }
    return text;
}

} // namespace

void writeMaps(ContentFolder& content)
{
    const QString folder = QStringLiteral("scripts/arena_defs/");
    QString list = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<arenas>\n");
    for (const Arena& arena : arenas) {
        const QString name = QLatin1String(arena.name);
        content.write(folder + name + QLatin1String(".xml"), arenaXml(arena));
        list += QStringLiteral("  <arena name=\"%1\"/>\n").arg(name);
    }
    content.write(folder + QLatin1String("_list_.xml"), list + QLatin1String("</arenas>\n"));
    content.write(folder + QLatin1String("_common_.xml"),
                  QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<common>\n"
                                 "  <countdown seconds=\"5\"/>\n  <respawn seconds=\"8\"/>\n"
                                 "  <bricks perLoad=\"24\" drySeconds=\"30\"/>\n</common>\n"));
    content.write(folder + QLatin1String("_default_.xml"),
                  QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<arena name=\"\" title=\"\">\n"
                                 "  <size width=\"640\" height=\"480\"/>\n  <crews count=\"2\" members=\"4\"/>\n"
                                 "  <timeLimit seconds=\"600\"/>\n</arena>\n"));
}

void writeLevels(ContentFolder& content)
{
    for (int i = 0; i < levelCount; ++i) {
        const Arena& arena = arenas[static_cast<std::size_t>(i)];
        const QString base = QStringLiteral("levels/%1/").arg(QLatin1String(arena.name));
        content.write(base + QLatin1String("actors.level"), levelJson(arena));
        content.write(base + QLatin1String("lights.level"), lightsJson(arena));
        content.write(base + QLatin1String("water.table"), waterText(arena));
    }
}

} // namespace generator
