#pragma once

#include <QString>

namespace editor {

/// A number with what it counts: "1 step", "2 steps".
inline QString counted(int count, const char* one, const char* many)
{
    return QStringLiteral("%1 %2").arg(count).arg(QLatin1String(count == 1 ? one : many));
}

} // namespace editor
