#pragma once

#include <support/scripted_tree.h>
#include <support/tree_lines.h>

#include <datamodels/simple_tree_model.h>

#include <map>

/// A node with a text, as the display and the edit value; the text can be set.
class TextNode : public SimpleTreeModel::Node
{
public:
    TextNode(SimpleTreeModel& owner, const QString& text);

    QVariant data(int role) const override;
    bool setData(int role, const QVariant& value) override;

private:
    QString m_text;
};

/// Looks what was grown up by its text. A text that was not grown, or more than once, throws
/// `std::out_of_range`.
template <class Value>
class GrownRows
{
public:
    void add(const QString& text, Value value) { m_rows.emplace(text, value); }

    const Value& at(const QString& text) const
    {
        if (m_rows.count(text) != 1)
            throw std::out_of_range((m_rows.count(text) ? "grown more than once: " : "not grown: ") +
                                    text.toStdString());
        return m_rows.find(text)->second;
    }

private:
    std::multimap<QString, Value> m_rows;
};

/// The nodes that `grow` made in a `SimpleTreeModel`: `tree["x"].reparent(&tree["b"], 0)`. They live as long
/// as the model keeps them.
class Tree
{
public:
    SimpleTreeModel::Node& operator[](const QString& text) const { return *m_nodes.at(text); }

private:
    friend Tree grow(SimpleTreeModel& model, const QStringList& lines);
    GrownRows<SimpleTreeModel::Node*> m_nodes;
};

/// The rows that `grow` made in a `ScriptedTree`, wherever they have gone since; invalid when removed.
class TreeRows
{
public:
    QModelIndex operator[](const QString& text) const { return m_rows.at(text); }

private:
    friend TreeRows grow(ScriptedTree& model, const QStringList& lines);
    GrownRows<QPersistentModelIndex> m_rows;
};

/// Appends the lines to the root of a model, the way `treeLines` shows them: {"a", "  x", "b"}.
Tree grow(SimpleTreeModel& model, const QStringList& lines);
TreeRows grow(ScriptedTree& model, const QStringList& lines);
