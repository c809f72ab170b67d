#pragma once

#include <QString>

namespace editor {

/// A number with what it counts: "1 step", "2 steps".
QString counted(int count, const char* one, const char* many);

/// Bytes as a list shows them: "12 B", "1.5 kB".
QString shortSize(qint64 bytes);

} // namespace editor
