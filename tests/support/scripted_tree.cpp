#include <support/scripted_tree.h>

#include <support/tree_lines.h>

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

struct ScriptedTree::Node
{
    Node* parent = nullptr;
    int id = 0;
    bool isRemoved = false;
    std::vector<QHash<int, QVariant>> cells;
    std::vector<std::unique_ptr<Node>> children;

    int row() const
    {
        const auto& siblings = parent->children;
        const auto isThis = [this](const auto& sibling) { return sibling.get() == this; };
        return int(std::find_if(siblings.begin(), siblings.end(), isThis) - siblings.begin());
    }

    template <class Visit>
    void visit(const Visit& visitor) const
    {
        for (const auto& child : children) {
            visitor(*child);
            child->visit(visitor);
        }
    }
};

namespace {

void require(bool legal, const char* what)
{
    if (!legal)
        throw std::invalid_argument(what);
}

bool canBeSet(int role)
{
    return role != ScriptedTree::IdRole && role != ScriptedTree::KeyRole;
}

} // namespace

ScriptedTree::ScriptedTree(int columns, QObject* parent)
    : QAbstractItemModel(parent), m_columns(columns), m_root(std::make_unique<Node>())
{
}

ScriptedTree::ScriptedTree(const QStringList& lines, int columns, QObject* parent)
    : ScriptedTree(columns, parent)
{
    m_root->children = makeNodes(lines, *m_root);
}

ScriptedTree::~ScriptedTree() = default;

QModelIndex ScriptedTree::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || row >= rowCount(parent) || column < 0 || column >= m_columns)
        return {};
    return createIndex(row, column, nodeAt(parent).children[size_t(row)].get());
}

QModelIndex ScriptedTree::parent(const QModelIndex& child) const
{
    return child.isValid() && !isStale(child) ? indexOf(*nodeAt(child).parent) : QModelIndex();
}

int ScriptedTree::rowCount(const QModelIndex& parent) const
{
    return parent.column() > 0 || isStale(parent) ? 0 : int(nodeAt(parent).children.size());
}

int ScriptedTree::columnCount(const QModelIndex& parent) const
{
    return parent.column() > 0 ? 0 : m_columns;
}

QVariant ScriptedTree::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || isStale(index))
        return {};
    const Node& node = nodeAt(index);
    if (role == IdRole)
        return node.id;
    if (role == KeyRole)
        return QStringLiteral("%1 %2").arg(data(index, Qt::DisplayRole).toString()).arg(node.id);
    return node.cells[size_t(index.column())].value(role == Qt::EditRole ? int(Qt::DisplayRole) : role);
}

bool ScriptedTree::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || !canBeSet(role))
        return false;
    change(index, value, role == Qt::EditRole ? int(Qt::DisplayRole) : role);
    return true;
}

QHash<int, QByteArray> ScriptedTree::roleNames() const
{
    QHash<int, QByteArray> names = QAbstractItemModel::roleNames();
    names.insert(KindRole, "kind");
    names.insert(SizeRole, "size");
    names.insert(IdRole, "id");
    names.insert(KeyRole, "key");
    return names;
}

bool ScriptedTree::insertRows(int row, int count, const QModelIndex& parent)
{
    if (row < 0 || row > rowCount(parent) || count < 1 || parent.column() > 0)
        return false;
    QStringList lines;
    std::fill_n(std::back_inserter(lines), count, QStringLiteral("new"));
    insert(parent, row, lines);
    return true;
}

bool ScriptedTree::removeRows(int row, int count, const QModelIndex& parent)
{
    if (row < 0 || count < 1 || row + count > rowCount(parent))
        return false;
    remove(parent, row, count);
    return true;
}

bool ScriptedTree::moveRows(const QModelIndex& from, int row, int count, const QModelIndex& to, int before)
{
    try {
        move(from, row, count, to, before);
        return true;
    } catch (const std::invalid_argument&) {
        return false;
    }
}

QModelIndex ScriptedTree::find(const QString& text) const
{
    std::vector<const Node*> found;
    m_root->visit([&](const Node& node) {
        if (node.cells[0].value(Qt::DisplayRole).toString() == text)
            found.push_back(&node);
    });
    if (found.size() != 1)
        throw std::out_of_range((found.empty() ? "no row \"" : "more than one row \"") + text.toStdString() +
                                '"');
    return indexOf(*found[0]);
}

QModelIndex ScriptedTree::findId(int id) const
{
    const Node* found = nullptr;
    m_root->visit([&](const Node& node) { found = node.id == id ? &node : found; });
    return found ? indexOf(*found) : QModelIndex();
}

int ScriptedTree::size() const
{
    int count = 0;
    m_root->visit([&count](const Node&) { ++count; });
    return count;
}

void ScriptedTree::insert(const QModelIndex& parent, int row, const QStringList& lines)
{
    require(parent.column() <= 0, "only column 0 has children");
    require(row >= 0 && row <= rowCount(parent), "insertion outside the rows");
    Node& node = nodeAt(parent);
    std::vector<std::unique_ptr<Node>> nodes = makeNodes(lines, node);
    if (nodes.empty())
        return;

    beginInsertRows(parent, row, row + int(nodes.size()) - 1);
    node.children.insert(node.children.begin() + row, std::make_move_iterator(nodes.begin()),
                         std::make_move_iterator(nodes.end()));
    endInsertRows();
}

void ScriptedTree::remove(const QModelIndex& parent, int row, int count)
{
    checkRange(parent, row, count);
    Node& node = nodeAt(parent);

    beginRemoveRows(parent, row, row + count - 1);
    const auto first = node.children.begin() + row;
    bury({std::make_move_iterator(first), std::make_move_iterator(first + count)});
    node.children.erase(first, first + count);
    endRemoveRows();
}

void ScriptedTree::move(const QModelIndex& from, int row, int count, const QModelIndex& to, int before)
{
    checkRange(from, row, count);
    require(to.column() <= 0, "only column 0 has children");
    require(before >= 0 && before <= rowCount(to), "move to outside the rows");
    Node& source = nodeAt(from);
    Node& target = nodeAt(to);
    require(beginMoveRows(from, row, row + count - 1, to, before),
            "move of a row below itself or to its own place");

    const auto first = source.children.begin() + row;
    std::vector<std::unique_ptr<Node>> moved(std::make_move_iterator(first),
                                             std::make_move_iterator(first + count));
    source.children.erase(first, first + count);
    const int place = &source == &target && before > row ? before - count : before;
    for (const auto& node : moved)
        node->parent = &target;
    target.children.insert(target.children.begin() + place, std::make_move_iterator(moved.begin()),
                           std::make_move_iterator(moved.end()));
    endMoveRows();
}

void ScriptedTree::change(const QModelIndex& topLeft, const QModelIndex& bottomRight, int role,
                          const QVariantList& values, RolesTold told)
{
    require(topLeft.isValid() && bottomRight.isValid() && topLeft.parent() == bottomRight.parent(),
            "a range has two valid ends of one parent");
    require(topLeft.row() <= bottomRight.row() && topLeft.column() <= bottomRight.column(),
            "range upside down");
    require(canBeSet(role) && !values.isEmpty(), "a change needs a value and a role that can be set");

    int next = 0;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        Node& node = *nodeAt(topLeft).parent->children[size_t(row)];
        for (int column = topLeft.column(); column <= bottomRight.column(); ++column)
            node.cells[size_t(column)][role] = values[next++ % values.size()];
    }
    Q_EMIT dataChanged(topLeft, bottomRight, told == TellRole ? QVector<int>{role} : QVector<int>{});
}

void ScriptedTree::change(const QModelIndex& index, const QVariant& value, int role)
{
    change(index, index, role, {value});
}

void ScriptedTree::rearrange(const QModelIndex& parent, const std::vector<int>& order, ParentsTold told)
{
    Node& node = nodeAt(parent);
    std::vector<int> rows(node.children.size());
    for (size_t i = 0; i < rows.size(); ++i)
        rows[i] = int(i);
    require(std::is_permutation(rows.begin(), rows.end(), order.begin(), order.end()),
            "not an order of the rows");

    const QList<QPersistentModelIndex> parents =
        told == TellParent ? QList<QPersistentModelIndex>{parent} : QList<QPersistentModelIndex>{};
    Q_EMIT layoutAboutToBeChanged(parents, VerticalSortHint);
    std::vector<std::unique_ptr<Node>> rearranged;
    for (const int row : order)
        rearranged.push_back(std::move(node.children[size_t(row)]));
    node.children = std::move(rearranged);

    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after.append(indexOf(nodeAt(index), index.column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged(parents, VerticalSortHint);
}

void ScriptedTree::reset(const QStringList& lines)
{
    std::vector<std::unique_ptr<Node>> nodes = makeNodes(lines, *m_root);

    beginResetModel();
    m_removed.clear();
    bury(std::exchange(m_root->children, std::move(nodes)));
    endResetModel();
}

ScriptedTree::Node& ScriptedTree::nodeAt(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *m_root;
}

bool ScriptedTree::isStale(const QModelIndex& index) const
{
    const bool stale = nodeAt(index).isRemoved;
    m_staleQuestions += stale;
    return stale;
}

void ScriptedTree::bury(std::vector<std::unique_ptr<Node>>&& removed)
{
    for (std::unique_ptr<Node>& node : removed) {
        node->isRemoved = true;
        node->visit([](Node& below) { below.isRemoved = true; });
        m_removed.push_back(std::move(node));
    }
}

QModelIndex ScriptedTree::indexOf(const Node& node, int column) const
{
    return &node == m_root.get() ? QModelIndex() : createIndex(node.row(), column, const_cast<Node*>(&node));
}

std::vector<std::unique_ptr<ScriptedTree::Node>> ScriptedTree::makeNodes(const QStringList& lines,
                                                                         Node& parent)
{
    std::vector<std::unique_ptr<Node>> nodes;
    std::vector<Node*> ancestors{&parent};
    for (const TreeLine& line : parseTree(lines)) {
        ancestors.resize(size_t(line.depth) + 1);
        auto node = makeNode(line.text, *ancestors.back());
        ancestors.push_back(node.get());
        (line.depth == 0 ? nodes : node->parent->children).push_back(std::move(node));
    }
    return nodes;
}

std::unique_ptr<ScriptedTree::Node> ScriptedTree::makeNode(const QString& line, Node& parent)
{
    const QStringList parts = line.split(QStringLiteral(" | "));
    QHash<int, QVariant> values;
    for (const QString& part : parts.mid(1)) {
        const int role = roleNames().key(part.section('=', 0, 0).toLatin1(), -1);
        require(role >= 0 && canBeSet(role), "a line names a role that cannot be set");
        const QString value = part.section('=', 1);
        values.insert(role, role == SizeRole ? QVariant(value.toInt()) : QVariant(value));
    }

    auto node = std::make_unique<Node>();
    node->parent = &parent;
    node->id = ++m_lastId;
    for (int column = 0; column < m_columns; ++column) {
        values[Qt::DisplayRole] = column == 0 ? parts[0] : QStringLiteral("%1.%2").arg(parts[0]).arg(column);
        node->cells.push_back(values);
    }
    return node;
}

void ScriptedTree::checkRange(const QModelIndex& parent, int row, int count) const
{
    require(row >= 0 && count >= 1 && row + count <= rowCount(parent), "range outside the rows");
}
