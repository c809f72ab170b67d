#pragma once

#include <QAbstractItemModel>
#include <QStringList>

#include <vector>

/// What a model shows below `root`, one line a row in column 0, two spaces a level: {"a", "  x", "  y", "b"}.
/// A row without a value for the role reads "(invalid)".
QStringList treeLines(const QAbstractItemModel& model, int role = Qt::DisplayRole,
                      const QModelIndex& root = {});

/// One line of such a text.
struct TreeLine
{
    int depth = 0;
    QString text;
};

/// Reads the lines of a tree. Throws `std::invalid_argument`, naming the line, for an indentation that is odd
/// or more than one level deeper than the line before.
std::vector<TreeLine> parseTree(const QStringList& lines);
