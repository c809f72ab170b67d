#include <support/grow.h>

TextNode::TextNode(SimpleTreeModel& owner, const QString& text) : Node(owner), m_text(text) {}

QVariant TextNode::data(int role) const
{
    return role == Qt::DisplayRole || role == Qt::EditRole ? m_text : QVariant();
}

bool TextNode::setData(int role, const QVariant& value)
{
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return false;
    m_text = value.toString();
    return true;
}

Tree grow(SimpleTreeModel& model, const QStringList& lines)
{
    Tree tree;
    std::vector<SimpleTreeModel::Node*> ancestors{&model.root()};
    for (const TreeLine& line : parseTree(lines)) {
        ancestors.resize(size_t(line.depth) + 1);
        TextNode& node = ancestors.back()->addChild<TextNode>(line.text);
        ancestors.push_back(&node);
        tree.m_nodes.add(line.text, &node);
    }
    return tree;
}

TreeRows grow(ScriptedTree& model, const QStringList& lines)
{
    const int first = model.rowCount();
    model.insert({}, first, lines);

    TreeRows rows;
    std::vector<QModelIndex> todo;
    for (int row = first; row < model.rowCount(); ++row)
        todo.push_back(model.index(row, 0));
    while (!todo.empty()) {
        const QModelIndex index = todo.back();
        todo.pop_back();
        rows.m_rows.add(index.data().toString(), index);
        for (int row = 0; row < model.rowCount(index); ++row)
            todo.push_back(model.index(row, 0, index));
    }
    return rows;
}
