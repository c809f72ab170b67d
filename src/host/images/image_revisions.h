#pragma once

#include <string>

class QString;

namespace Tessen {

/// How often a file has changed as far as the program knows, so that the URLs of its pictures differ from those before.
/// Threads: any.
unsigned imageRevision(const QString& fileName);
void raiseImageRevision(const std::string& path);

} // namespace Tessen
