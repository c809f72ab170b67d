#include "text_matches.h"

#include <algorithm>

namespace editor {

QVector<TextRange> textMatches(const QString& text, const QStringList& needles)
{
    QVector<TextRange> found;
    for (const QString& needle : needles) {
        if (needle.isEmpty())
            continue;
        // Qt compares by the simple folding of each character, which never changes how many units it takes: a match is
        // as long as its needle.
        for (int at = 0; (at = text.indexOf(needle, at, Qt::CaseInsensitive)) >= 0; ++at)
            found.append({at, needle.size()});
    }
    std::sort(found.begin(), found.end(), [](const TextRange& a, const TextRange& b) { return a.start < b.start; });

    QVector<TextRange> joined;
    for (const TextRange& range : std::as_const(found)) {
        if (joined.isEmpty() || range.start > joined.last().start + joined.last().length) {
            joined.append(range);
            continue;
        }
        TextRange& last = joined.last();
        last.length = std::max(last.length, range.start + range.length - last.start);
    }
    return joined;
}

} // namespace editor
