#include <support/tree_mirror.h>

#include <support/paths.h>

#include <iterator>

struct TreeMirror::Node
{
    QString text;
    Rows children;

    void appendLines(QStringList& lines, int depth) const
    {
        for (const auto& child : children) {
            lines.append(QString(2 * depth, ' ') + child->text);
            child->appendLines(lines, depth + 1);
        }
    }
};

TreeMirror::TreeMirror(const QAbstractItemModel& model, int role)
    : m_model(model), m_role(role), m_root(std::make_unique<Node>())
{
    readAll();
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &m_context,
                     [this](const QModelIndex& parent, int first, int last) { insert(parent, first, last); });
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, &m_context,
                     [this](const QModelIndex& parent, int first, int last) { remove(parent, first, last); });
    // Where rows have come from would take some bookkeeping; what they are now can be read.
    QObject::connect(&model, &QAbstractItemModel::rowsMoved, &m_context, [this] { readAll(); });
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, &m_context, [this] { readAll(); });
    QObject::connect(&model, &QAbstractItemModel::modelReset, &m_context, [this] { readAll(); });
}

TreeMirror::~TreeMirror() = default;

QStringList TreeMirror::lines() const
{
    QStringList lines;
    m_root->appendLines(lines, 0);
    return lines;
}

TreeMirror::Rows* TreeMirror::rowsAt(const QModelIndex& parent)
{
    if (!parent.isValid())
        return &m_root->children;
    Rows* siblings = rowsAt(parent.parent());
    if (!siblings || size_t(parent.row()) >= siblings->size())
        return nullptr;
    return &(*siblings)[size_t(parent.row())]->children;
}

TreeMirror::Rows TreeMirror::read(const QModelIndex& parent, int first, int last) const
{
    Rows rows;
    for (int row = first; row <= last; ++row) {
        const QModelIndex index = m_model.index(row, 0, parent);
        const QVariant value = m_model.data(index, m_role);
        auto node = std::make_unique<Node>();
        node->text = value.isValid() ? value.toString() : QStringLiteral("(invalid)");
        if (index.isValid())
            node->children = read(index, 0, m_model.rowCount(index) - 1);
        rows.push_back(std::move(node));
    }
    return rows;
}

void TreeMirror::readAll()
{
    m_root->children = read({}, 0, m_model.rowCount() - 1);
}

void TreeMirror::insert(const QModelIndex& parent, int first, int last)
{
    Rows* rows = rowsAt(parent);
    if (!rows || first < 0 || last < first || size_t(first) > rows->size())
        return addFault("inserted", parent, first, last, rows);
    Rows inserted = read(parent, first, last);
    rows->insert(rows->begin() + first, std::make_move_iterator(inserted.begin()),
                 std::make_move_iterator(inserted.end()));
}

void TreeMirror::remove(const QModelIndex& parent, int first, int last)
{
    Rows* rows = rowsAt(parent);
    if (!rows || first < 0 || last < first || size_t(last) >= rows->size())
        return addFault("removed", parent, first, last, rows);
    rows->erase(rows->begin() + first, rows->begin() + last + 1);
}

void TreeMirror::addFault(const char* what, const QModelIndex& parent, int first, int last, const Rows* rows)
{
    m_faults.append(QStringLiteral("%1 %2 [%3..%4]: there are %5 rows")
                        .arg(QLatin1String(what), pathOf(parent))
                        .arg(first)
                        .arg(last)
                        .arg(rows ? int(rows->size()) : 0));
}
