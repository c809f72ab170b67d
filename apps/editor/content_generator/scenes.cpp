#include "game.h"
#include "random.h"
#include "writers.h"

#include <QLocale>
#include <QStringList>

#include <utility>
#include <vector>

namespace generator {
namespace {

struct Prop
{
    const char* name;
    const char* model;
    const char* mobility;
    bool floats;
};

const std::vector<Prop> quayProps{{"Bollard", "models/quay/bollard.mesh", "Static", false},
                                  {"Steps", "models/quay/steps.mesh", "Static", false},
                                  {"Crane", "models/quay/crane.mesh", "Driven", false}};
const std::vector<Prop> goods{{"Crate", "models/props/crate.mesh", "Movable", true},
                              {"Barrel", "models/props/barrel.mesh", "Movable", true},
                              {"Brick stack", "models/props/brick_stack.mesh", "Static", false},
                              {"Rope coil", "models/props/rope_coil.mesh", "Movable", false}};
const std::vector<Prop> boats{{"Barge", "models/boats/barge.mesh", "Driven", true},
                              {"Dinghy", "models/boats/dinghy.mesh", "Driven", true}};
const std::vector<Prop> buildings{{"Boathouse", "models/buildings/boathouse.mesh", "Static", false},
                                  {"Drying shed", "models/buildings/drying_shed.mesh", "Static", false},
                                  {"Kiln", "models/buildings/kiln.mesh", "Static", false},
                                  {"Watchtower", "models/buildings/watchtower.mesh", "Static", false}};

QString number(double value)
{
    return QString::fromLatin1(QByteArray::number(value, 'g', QLocale::FloatingPointShortest));
}

QString vector(double x, double y, double z)
{
    return QStringLiteral("{\"x\": %1, \"y\": %2, \"z\": %3}").arg(number(x), number(y), number(z));
}

QString yesNo(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

/// A list of objects as the editor writes it: one a line, indented by their depth.
QString list(const QStringList& objects, int depth)
{
    const QString start = QLatin1Char('\n') + QString(2 * depth, QLatin1Char(' '));
    return objects.isEmpty() ? QStringLiteral("[]")
                             : QLatin1Char('[') + start + objects.join(QLatin1Char(',') + start) + QLatin1Char(']');
}

/// What every object of a level begins with.
QString head(const char* className, const QString& name, bool isEnabled = true, bool isLocked = false)
{
    return QStringLiteral(
               "{\"class\": \"%1\", \"_objectName\": \"%2\", \"_isEnabled\": %3, \"visible\": true, \"locked\": %4")
        .arg(QLatin1String(className), name, yesNo(isEnabled), yesNo(isLocked));
}

/// A rectangle of the level, in metres, and how things stand in it.
struct Area
{
    enum Order
    {
        Scattered,
        InStacks,     ///< a few close to each other
        OnTheLeft,    ///< one above the other along the edge
        OnTheRight,
    };

    int left;
    int bottom;
    int right;
    int top;
    Order order = Scattered;

    Area with(Order other) const { return {left, bottom, right, top, other}; }
};

class Scene
{
public:
    explicit Scene(const Arena& arena) : m_arena(arena), m_random(std::string(arena.name) + "/scene") {}

    QString text()
    {
        const int w = m_arena.width;
        const int h = m_arena.height;
        const Area west{12, 40, 96, h - 40};
        const Area east{w - 96, 40, w - 12, h - 40};
        const Area basin{120, 60, w - 120, h - 60};
        const Area westWall = west.with(Area::OnTheRight);
        const Area westBack = west.with(Area::OnTheLeft);
        const Area eastWall = east.with(Area::OnTheLeft);
        const Area eastBack = east.with(Area::OnTheRight);
        const Area market{30, 40, 72, 150, Area::InStacks};
        const QStringList groups{
            group("West quay",
                  {actors("Quay wall", quayProps, 42, westWall, 3),
                   actors("Goods", goods, 56, west.with(Area::InStacks), 3),
                   actors("Buildings", buildings, 9, westBack, 3, true), lights("Lamps", 14, westWall, 3)}),
            group("East quay",
                  {actors("Quay wall", quayProps, 38, eastWall, 3),
                   actors("Goods", goods, 61, east.with(Area::InStacks), 3),
                   actors("Buildings", buildings, 7, eastBack, 3, true), lights("Lamps", 12, eastWall, 3)}),
            group("Basin", {actors("Boats", boats, 24, basin, 3),
                            actors("Adrift", goods, 33, basin.with(Area::InStacks), 3), lights("Buoys", 9, basin, 3)}),
            group("Winter market", {actors("Stalls", goods, 28, market, 3), lights("Lanterns", 16, market, 3)}, false),
            group("Crews", spawnPoints()),
            group("Ways", ways(basin)),
        };
        return QStringLiteral("{\"format\": \"level scene\", \"version\": 1, \"scene\":\n")
               + head("Level", QLatin1String(m_arena.title)) + QStringLiteral(", \"children\": ") + list(groups, 1)
               + QStringLiteral(", \"width\": %1, \"height\": %2, \"waterColour\": \"#2b4a5a\", \"waterLevel\": 0}}\n")
                     .arg(w)
                     .arg(h);
    }

private:
    QString group(const char* name, const QStringList& objects, bool isEnabled = true, int depth = 2)
    {
        return head("Group", QLatin1String(name), isEnabled) + QStringLiteral(", \"children\": ") + list(objects, depth)
             + QLatin1Char('}');
    }

    double between(int low, int high) { return m_random.between(low * 4, high * 4) / 4.0; }

    /// The place of the nth of some objects.
    QString placeIn(const Area& area, int n, int count, int lowest, int highest)
    {
        double x = between(area.left, area.right);
        double y = between(area.bottom, area.top);
        if (area.order == Area::InStacks && n % 5 != 1) {
            x = m_stack.first + between(-5, 5);
            y = m_stack.second + between(-5, 5);
        } else if (area.order == Area::InStacks) {
            m_stack = {x, y};
        } else if (area.order != Area::Scattered) {
            x = (area.order == Area::OnTheLeft ? area.left : area.right) + between(-2, 2);
            y = area.bottom + double((area.top - area.bottom) * n / count);
        }
        return vector(x, y, between(lowest, highest));
    }

    QString actors(const char* name, const std::vector<Prop>& props, int count, const Area& area, int depth,
                   bool isLocked = false)
    {
        QStringList objects;
        for (int i = 1; i <= count; ++i) {
            const Prop& prop = m_random.pick(props);
            const QString place = placeIn(area, i, count, prop.floats ? 0 : 1, prop.floats ? 0 : 2);
            objects << actor(prop, QStringLiteral("%1 %2").arg(QLatin1String(prop.name)).arg(i), place, depth + 1,
                             isLocked);
        }
        return group(name, objects, true, depth);
    }

    QString actor(const Prop& prop, const QString& name, const QString& place, int depth, bool isLocked)
    {
        const bool isBroken = m_random.between(1, 60) == 1;
        const int scale = m_random.between(16, 30);
        const int heading = m_random.between(0, 23) * 15;
        const QString tags = m_random.between(1, 5) == 1 ? QStringLiteral("[\"cover\"]")
                           : prop.floats             ? QStringLiteral("[\"floats\", \"prop\"]")
                                                     : QStringLiteral("[]");
        return head("Actor", name, m_random.between(1, 24) > 1, isLocked)
               + QStringLiteral(
                     ", \"position\": %1, \"heading\": %2, \"scale\": %3, \"mobility\": \"%4\", \"model\": \"%5\", "
                     "\"notes\": \"\", \"tags\": %6, \"components\": %7}")
                     .arg(place)
                     .arg(heading)
                     .arg(number(scale / 20.0))
                     .arg(QLatin1String(prop.mobility))
                     .arg(isBroken ? QString() : QLatin1String(prop.model), tags, list(components(prop), depth));
    }

    QStringList components(const Prop& prop)
    {
        const QString size =
            vector(m_random.between(2, 12) / 4.0, m_random.between(2, 12) / 4.0, m_random.between(2, 8) / 4.0);
        QStringList parts{
            QStringLiteral(
                "{\"class\": \"Collider\", \"active\": true, \"shape\": \"%1\", \"size\": %2, \"trigger\": false}")
                .arg(m_random.between(0, 2) > 0 ? QStringLiteral("Box") : QStringLiteral("Hull"), size)};
        if (prop.floats)
            parts << QStringLiteral("{\"class\": \"Buoyancy\", \"active\": true, \"density\": %1, \"drag\": 0.2}")
                         .arg(number(m_random.between(6, 18) / 20.0));
        if (QLatin1String(prop.mobility) == QLatin1String("Driven"))
            parts << QStringLiteral("{\"class\": \"Sound\", \"active\": true, \"file\": \"sounds/boats.bank\", "
                                    "\"volume\": %1, \"loops\": true}")
                         .arg(m_random.between(8, 18) * 5);
        return parts;
    }

    QString lights(const char* name, int count, const Area& area, int depth)
    {
        const std::vector<const char*> colours{"#ffd9a0", "#ffe9c8", "#a8c8ff", "#ffb870"};
        QStringList objects;
        for (int i = 1; i <= count; ++i) {
            const QString place = placeIn(area, i, count, 3, 6);
            objects << head("Light", QStringLiteral("Lamp %1").arg(i), m_random.between(1, 12) > 1)
                           + QStringLiteral(
                                 ", \"position\": %1, \"kind\": \"%2\", \"colour\": \"%3\", \"intensity\": %4, "
                                 "\"range\": %5, \"castsShadows\": %6}")
                                 .arg(place,
                                      m_random.between(0, 3) > 0 ? QStringLiteral("Point") : QStringLiteral("Spot"),
                                      QLatin1String(m_random.pick(colours)))
                                 .arg(m_random.between(4, 18) * 5)
                                 .arg(number(m_random.between(12, 60) / 2.0))
                                 .arg(yesNo(m_random.between(0, 2) > 0));
        }
        return group(name, objects, true, depth);
    }

    QStringList spawnPoints()
    {
        QStringList points;
        for (int crew = 1; crew <= m_arena.crews; ++crew) {
            for (const char* place : {"Helm", "Bow", "Hold"}) {
                points << head("SpawnPoint", QStringLiteral("Crew %1, %2").arg(crew).arg(QLatin1String(place)))
                              + QStringLiteral(", \"position\": %1, \"heading\": %2, \"crew\": %3, \"radius\": 4}")
                                    .arg(placeIn({100, 60 * crew, 130, 60 * crew + 40}, crew, m_arena.crews, 0, 0))
                                    .arg(m_random.between(0, 23) * 15).arg(crew);
            }
        }
        return points;
    }

    /// Corners of an octagon, so that no platform rounds them in its own way.
    QString onRing(double x, double y, int reach, int n, int count)
    {
        static constexpr double corners[8][2] = {{1, 0},  {0.75, 0.75},   {0, 1},  {-0.75, 0.75},
                                                 {-1, 0}, {-0.75, -0.75}, {0, -1}, {0.75, -0.75}};
        const auto& corner = corners[n * 8 / count];
        return vector(x + corner[0] * reach, y + corner[1] * reach, 0);
    }

    /// From the south to the north.
    QString onWay(const Area& area, double x, int n, int count)
    {
        return vector(x + between(-12, 12), area.bottom + double((area.top - area.bottom) * n / (count - 1)), 0);
    }

    QStringList ways(const Area& area)
    {
        const std::vector<std::pair<const char*, const char*>> wanted{{"Ferry", "#7fc8a9"},
                                                                      {"Salt barge", "#e08a5b"},
                                                                      {"Patrol", "#d0706b"},
                                                                      {"Current", "#5fa8c9"},
                                                                      {"Lantern run", "#ffd166"}};
        QStringList paths;
        for (const auto& [name, colour] : wanted) {
            QStringList points;
            const bool isClosed = m_random.between(0, 1) > 0;
            const double startX = between(area.left + 80, area.right - 80);
            const double startY = between(area.bottom + 80, area.top - 80);
            const int reach = m_random.between(30, 75);
            for (int i = 0, count = m_random.between(5, 9); i < count; ++i) {
                const QString place =
                    isClosed ? onRing(startX, startY, reach, i, count) : onWay(area, startX, i, count);
                points << QStringLiteral("{\"class\": \"PathPoint\", \"position\": %1, \"wait\": %2}")
                              .arg(place).arg(m_random.between(0, 3) > 0 ? 0 : m_random.between(2, 20));
            }
            paths << head("Path", QLatin1String(name))
                         + QStringLiteral(", \"colour\": \"%1\", \"speed\": %2, \"closed\": %3, \"points\": %4}")
                               .arg(QLatin1String(colour), number(m_random.between(4, 24) / 2.0), yesNo(isClosed),
                                    list(points, 3));
        }
        return paths;
    }

    const Arena& m_arena;
    Random m_random;
    std::pair<double, double> m_stack;
};

} // namespace

void writeScenes(ContentFolder& content)
{
    const Arena& arena = arenas[2];
    content.write(QStringLiteral("levels/%1/scene.json").arg(QLatin1String(arena.name)), Scene(arena).text());
}

} // namespace generator
