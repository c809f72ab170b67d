#include <support/random_walk.h>

#include <support/paths.h>

#include <algorithm>
#include <numeric>

namespace {

constexpr int longestRange = 3;

const QStringList words{"oak", "Oak", "ash", "birch", "elm", "fir", "oaken", "ASH", "pine", "moss"};
const QStringList kinds{"tree", "bush", "herb"};

void appendRows(std::vector<QModelIndex>& rows, const ScriptedTree& tree, const QModelIndex& parent)
{
    for (int row = 0; row < tree.rowCount(parent); ++row) {
        const QModelIndex child = tree.index(row, 0, parent);
        rows.push_back(child);
        appendRows(rows, tree, child);
    }
}

std::vector<QModelIndex> allRows(const ScriptedTree& tree)
{
    std::vector<QModelIndex> rows;
    appendRows(rows, tree, {});
    return rows;
}

QString rangeText(const char* what, const QModelIndex& parent, int row, int count)
{
    return QStringLiteral("%1 %2 [%3..%4]")
        .arg(QLatin1String(what), pathOf(parent))
        .arg(row)
        .arg(row + count - 1);
}

} // namespace

RandomWalk::RandomWalk(ScriptedTree& tree, unsigned seed, const Settings& settings, int mostRows)
    : m_tree(tree), m_random(seed), m_settings(settings), m_seed(seed), m_mostRows(mostRows)
{
}

RandomWalk::RandomWalk(ScriptedTree& tree, unsigned seed) : RandomWalk(tree, seed, Settings()) {}

void RandomWalk::step()
{
    ++m_steps;
    const int size = m_tree.size();
    if (size == 0)
        return insert();

    const std::pair<int, void (RandomWalk::*)()> choices[] = {
        {size < m_mostRows ? m_settings.insert : 0, &RandomWalk::insert},
        {m_settings.remove, &RandomWalk::remove},
        {m_settings.move, &RandomWalk::move},
        {m_settings.change, &RandomWalk::change},
        {m_settings.rearrange, &RandomWalk::rearrange},
        {m_settings.reset, &RandomWalk::reset},
    };
    int sum = 0;
    for (const auto& choice : choices)
        sum += choice.first;
    int left = below(sum);
    for (const auto& choice : choices) {
        left -= choice.first;
        if (left < 0)
            return (this->*choice.second)();
    }
}

QString RandomWalk::where() const
{
    return QStringLiteral("seed %1, step %2: %3").arg(m_seed).arg(m_steps).arg(m_last);
}

// The standard's distributions differ from library to library.
int RandomWalk::below(int limit)
{
    return limit > 0 ? int(m_random() % unsigned(limit)) : 0;
}

QString RandomWalk::randomLine()
{
    const QString word = words[below(words.size())];
    const QString kind = kinds[below(kinds.size())];
    return QStringLiteral("%1 | kind=%2 | size=%3").arg(word, kind).arg(below(5));
}

QModelIndex RandomWalk::randomRow()
{
    const std::vector<QModelIndex> rows = allRows(m_tree);
    return rows[size_t(below(int(rows.size())))];
}

QModelIndex RandomWalk::randomParent()
{
    return m_tree.size() == 0 || oneIn(4) ? QModelIndex() : randomRow();
}

RandomWalk::Range RandomWalk::randomRange()
{
    const QModelIndex first = randomRow();
    const int rest = m_tree.rowCount(first.parent()) - first.row();
    return {first.parent(), first.row(), 1 + below(std::min(rest, longestRange))};
}

void RandomWalk::insert()
{
    const QModelIndex parent = randomParent();
    const int row = below(m_tree.rowCount(parent) + 1);
    QStringList lines;
    for (int i = below(longestRange); i >= 0; --i) {
        lines.append(randomLine());
        if (oneIn(3))
            lines.append(QStringLiteral("  ") + randomLine());
    }
    m_last = QStringLiteral("insert %1 [%2] %3")
                 .arg(pathOf(parent))
                 .arg(row)
                 .arg(lines.join(QStringLiteral("; ")));
    m_tree.insert(parent, row, lines);
}

void RandomWalk::remove()
{
    const Range range = randomRange();
    m_last = rangeText("remove", range.parent, range.row, range.count);
    m_tree.remove(range.parent, range.row, range.count);
}

void RandomWalk::move()
{
    const Range range = randomRange();
    const QModelIndex target = oneIn(2) ? range.parent : randomParent();
    const int before = below(m_tree.rowCount(target) + 1);
    m_last = rangeText("move", range.parent, range.row, range.count) +
             QStringLiteral(" to %1 [%2]").arg(pathOf(target)).arg(before);
    // What cannot be moved there stays.
    if (!m_tree.moveRows(range.parent, range.row, range.count, target, before))
        m_last.prepend(QStringLiteral("no "));
}

void RandomWalk::change()
{
    const Range range = randomRange();
    const int firstColumn = below(m_tree.columnCount());
    const int lastColumn = firstColumn + below(m_tree.columnCount() - firstColumn);
    const QModelIndex topLeft = m_tree.index(range.row, firstColumn, range.parent);
    const QModelIndex bottomRight = m_tree.index(range.row + range.count - 1, lastColumn, range.parent);
    const int roles[] = {Qt::DisplayRole, Qt::DisplayRole, ScriptedTree::KindRole, ScriptedTree::SizeRole};
    const int role = roles[below(4)];

    QVariantList values;
    for (int i = 0; i < range.count; ++i) {
        if (role == ScriptedTree::SizeRole)
            values.append(below(5));
        else
            values.append(role == ScriptedTree::KindRole ? kinds[below(kinds.size())]
                                                         : words[below(words.size())]);
    }
    const bool tells = !oneIn(3) && (m_settings.tellsOtherRoles || role == Qt::DisplayRole);
    m_last = QStringLiteral("change %1 .. %2 role %3 %4")
                 .arg(pathOf(topLeft), pathOf(bottomRight))
                 .arg(role)
                 .arg(tells ? "told" : "not told");
    m_tree.change(topLeft, bottomRight, role, values, tells ? ScriptedTree::TellRole : ScriptedTree::TellNoRoles);
}

void RandomWalk::rearrange()
{
    const QModelIndex parent = randomRow().parent();
    std::vector<int> order(size_t(m_tree.rowCount(parent)));
    std::iota(order.begin(), order.end(), 0);
    for (int i = int(order.size()) - 1; i > 0; --i)
        std::swap(order[size_t(i)], order[size_t(below(i + 1))]);
    const bool tells = oneIn(2) && m_settings.tellsParents;
    m_last = QStringLiteral("rearrange %1 %2").arg(pathOf(parent), tells ? "told" : "not told");
    m_tree.rearrange(parent, order, tells ? ScriptedTree::TellParent : ScriptedTree::TellNoParents);
}

void RandomWalk::reset()
{
    QStringList lines;
    for (int i = below(5); i >= 0; --i)
        lines.append(randomLine());
    m_last = QStringLiteral("reset to %1").arg(lines.join(QStringLiteral("; ")));
    m_tree.reset(lines);
}
