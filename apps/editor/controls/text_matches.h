#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace editor {

/// Part of a text: its first UTF-16 unit and its length in units.
struct TextRange
{
    int start;
    int length;

    bool operator==(const TextRange&) const = default;
};

/// Where the needles occur in a text, ignoring case as the filters do, in order and without overlaps: ranges that touch
/// or overlap are joined. Empty needles occur nowhere.
QVector<TextRange> textMatches(const QString& text, const QStringList& needles);

} // namespace editor
