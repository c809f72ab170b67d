#include "game.h"

namespace generator {

const std::array<Arena, 12> arenas{{
    {"brickfield_bend", "Brickfield Bend", "sky_noon", 640, 480, 2, 600},
    {"chalk_causeway", "Chalk Causeway", "sky_dawn", 720, 360, 2, 720},
    {"copper_quay", "Copper Quay", "sky_noon", 512, 512, 4, 600},
    {"drydock_nine", "Drydock Nine", "sky_rain", 480, 480, 2, 480},
    {"ferry_yard", "Ferry Yard", "sky_noon", 560, 420, 3, 600},
    {"kiln_hollow", "Kiln Hollow", "sky_dawn", 600, 600, 4, 900},
    {"lantern_steps", "Lantern Steps", "sky_rain", 400, 640, 2, 540},
    {"moss_viaduct", "Moss Viaduct", "sky_rain", 800, 320, 2, 720},
    {"north_weir", "North Weir", "sky_dawn", 640, 640, 4, 0},
    {"reed_harbour", "Reed Harbour", "sky_noon", 700, 500, 3, 660},
    {"salt_locks", "Salt Locks", "sky_dawn", 640, 480, 4, 840},
    {"windmill_row", "Windmill Row", "sky_noon", 760, 400, 2, 0},
}};

} // namespace generator
