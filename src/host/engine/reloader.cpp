#include <host/engine/reloader.h>

namespace Ozy {

Reloader::~Reloader() = default;

} // namespace Ozy
