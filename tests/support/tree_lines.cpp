#include <support/tree_lines.h>

#include <stdexcept>

namespace {

void appendLines(QStringList& lines, const QAbstractItemModel& model, int role, const QModelIndex& parent,
                 int depth)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QVariant value = model.data(index, role);
        lines.append(QString(2 * depth, ' ') +
                     (value.isValid() ? value.toString() : QStringLiteral("(invalid)")));
        // A row that has no index would be taken for the root, and never end.
        if (index.isValid())
            appendLines(lines, model, role, index, depth + 1);
    }
}

int indentation(const QString& line)
{
    int spaces = 0;
    while (spaces < line.size() && line[spaces] == ' ')
        ++spaces;
    return spaces;
}

} // namespace

QStringList treeLines(const QAbstractItemModel& model, int role, const QModelIndex& root)
{
    QStringList lines;
    appendLines(lines, model, role, root, 0);
    return lines;
}

std::vector<TreeLine> parseTree(const QStringList& lines)
{
    std::vector<TreeLine> parsed;
    int deepest = 0;
    for (const QString& line : lines) {
        const int spaces = indentation(line);
        if (spaces % 2 != 0 || spaces / 2 > deepest)
            throw std::invalid_argument("wrong indentation: \"" + line.toStdString() + '"');
        parsed.push_back({spaces / 2, line.mid(spaces)});
        deepest = spaces / 2 + 1;
    }
    return parsed;
}
