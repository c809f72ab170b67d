#pragma once

#include <string>

class QString;

namespace Tessen {

/// The path of the file that a name given to the service means: itself when it is absolute, else that of the resource.
std::string imagePath(const QString& fileName);

} // namespace Tessen
