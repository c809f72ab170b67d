#include "plain_mirror.h"

#include <algorithm>
#include <iterator>

namespace {

PlainMirror::Item* findBelow(PlainMirror::Item& item, const QModelIndex& source)
{
    for (const auto& child : item.children) {
        if (!child)
            continue;
        if (child->source == source)
            return child.get();
        if (PlainMirror::Item* found = findBelow(*child, source))
            return found;
    }
    return nullptr;
}

void visitBelow(const PlainMirror::Item& item, const std::function<void(const PlainMirror::Item&)>& visit)
{
    for (const auto& child : item.children) {
        if (!child)
            continue;
        visit(*child);
        visitBelow(*child, visit);
    }
}

QString rangeText(const char* what, const QString& path, int first, int last)
{
    return QStringLiteral("%1 %2 [%3..%4]").arg(QLatin1String(what), path).arg(first).arg(last);
}

QString pathOf(const PlainMirror::Item* parent, int row)
{
    return parent ? QStringLiteral("%1/%2").arg(parent->path()).arg(row) : QStringLiteral("/0");
}

QString moveText(const char* what, const QString& from, int first, int last, const QString& to, int row)
{
    return rangeText(what, from, first, last) + QStringLiteral(" to %1 [%2]").arg(to).arg(row);
}

/// The slot of `parent` in which an item is, or below which; -1 if none.
int slotAbove(const PlainMirror::Item& parent, const PlainMirror::Item* item)
{
    while (item && item->parent != &parent)
        item = item->parent;
    return item ? item->row() : -1;
}

} // namespace

int PlainMirror::Item::row() const
{
    const auto isThis = [this](const auto& sibling) { return sibling.get() == this; };
    return int(std::find_if(parent->children.begin(), parent->children.end(), isThis) - parent->children.begin());
}

QString PlainMirror::Item::path() const
{
    return isMount() ? QStringLiteral("/0") : pathOf(parent, row());
}

PlainMirror::PlainMirror(QAbstractItemModel& model) : m_model(model)
{
    using Model = QAbstractItemModel;
    const auto listen = [this](auto signal, auto slot) { QObject::connect(&m_model, signal, &m_context, slot); };
    listen(&Model::rowsAboutToBeInserted, [this](const QModelIndex& parent, int first, int last) {
        Item* item = find(parent);
        if (!item)
            return begin({});
        tell("inserting", item->path(), first, last);
        begin(rangeText("inserted", item->path(), first, last));
        insertSlots(*item, first, last - first + 1);
    });
    listen(&Model::rowsAboutToBeRemoved, [this](const QModelIndex& parent, int first, int last) {
        Item* item = find(parent);
        if (!item)
            return begin({});
        tell("removing", item->path(), first, last);
        begin(rangeText("removed", item->path(), first, last));
        removeSlots(*item, first, last);
    });
    listen(&Model::rowsAboutToBeMoved,
           [this](const QModelIndex& from, int first, int last, const QModelIndex& to, int row) {
               beginMove(from, first, last, to, row);
           });
    listen(&Model::rowsInserted, [this] { end(); });
    listen(&Model::rowsRemoved, [this] { end(); });
    listen(&Model::rowsMoved, [this] { end(); });
    listen(&Model::layoutAboutToBeChanged, [this](const Parents& parents) { beginLayout(parents); });
    listen(&Model::layoutChanged,
           [this](const Parents& parents) { m_lines << "layout changed" + pathsOf(parents) + " sorted rows"; });
    listen(&Model::modelAboutToBeReset, [this] { beginReset(); });
    listen(&Model::modelReset, [this] { endReset(); });
    listen(&Model::dataChanged, [this](const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                       const QVector<int>& roles) { change(topLeft, bottomRight, roles); });
}

int PlainMirror::rowCount(const Item& item) const
{
    return item.isMount() || item.source.isValid() ? m_model.rowCount(item.source) : 0;
}

PlainMirror::Item& PlainMirror::ask(Item& parent, int row)
{
    if (size_t(row) >= parent.children.size())
        parent.children.resize(size_t(row) + 1);
    auto& child = parent.children[size_t(row)];
    if (!child) {
        child = std::make_unique<Item>();
        child->source = m_model.index(row, 0, parent.source);
        child->parent = &parent;
    }
    return *child;
}

void PlainMirror::forEachItem(const std::function<void(const Item&)>& visit) const
{
    visitBelow(m_mount, visit);
}

QStringList PlainMirror::take()
{
    return std::exchange(m_lines, {});
}

PlainMirror::Item* PlainMirror::find(const QModelIndex& source)
{
    return source.isValid() ? findBelow(m_mount, source) : &m_mount;
}

void PlainMirror::tell(const char* what, const QString& path, int first, int last)
{
    m_lines << rangeText(what, path, first, last);
}

void PlainMirror::insertSlots(Item& item, int first, int count)
{
    if (size_t(first) > item.children.size())
        item.children.resize(size_t(first));
    std::vector<std::unique_ptr<Item>> empty(static_cast<size_t>(count));
    item.children.insert(item.children.begin() + first, std::make_move_iterator(empty.begin()),
                         std::make_move_iterator(empty.end()));
}

void PlainMirror::removeSlots(Item& item, int first, int last)
{
    const int slotCount = int(item.children.size());
    if (first < slotCount)
        item.children.erase(item.children.begin() + first, item.children.begin() + std::min(last, slotCount - 1));
}

void PlainMirror::begin(const QString& closing)
{
    m_closing.push_back([closing] { return closing; });
}

void PlainMirror::end()
{
    const QString closing = m_closing.back()();
    m_closing.pop_back();
    if (!closing.isEmpty())
        m_lines << closing;
    if (const Item* target = std::exchange(m_afterwards, nullptr)) {
        tell("inserting", target->path(), m_rowAfterwards, m_rowAfterwards + m_countAfterwards - 1);
        tell("inserted", target->path(), m_rowAfterwards, m_rowAfterwards + m_countAfterwards - 1);
    }
}

void PlainMirror::beginMove(const QModelIndex& from, int first, int last, const QModelIndex& to, int row)
{
    Item* source = find(from);
    Item* target = find(to);
    const int count = last - first + 1;
    // By the rows that the composite shows, which after removals are not those of the model.
    const int slot = source && target ? slotAbove(*source, target) : -1;
    if (slot >= first && slot <= last) {
        tell("removing", source->path(), first, last);
        if (slot < std::min(last, int(source->children.size()) - 1))
            target = nullptr; // it goes too
        m_afterwards = target;
        m_rowAfterwards = row;
        m_countAfterwards = count;
        begin(rangeText("removed", source->path(), first, last));
    } else if (source && target) {
        m_lines << moveText("moving", source->path(), first, last, target->path(), row);
        // Of the two parents one may stand behind where the rows were or come to be, and be moved by it.
        const bool movesSource = source->parent == target && source->row() >= row;
        const bool movesTarget = target->parent == source && target->row() >= last;
        const int sourceRow = source->isMount() ? 0 : source->row() + (movesSource ? count : 0);
        const int targetRow = target->isMount() ? 0 : target->row() - (movesTarget ? count : 0);
        // The rows of the parents are as announced, those above as they are when the move is told.
        m_closing.push_back([=, above = source->parent, targetAbove = target->parent] {
            return moveText("moved", pathOf(above, sourceRow), first, last, pathOf(targetAbove, targetRow), row);
        });
    } else if (target) {
        tell("inserting", target->path(), row, row + count - 1);
        begin(rangeText("inserted", target->path(), row, row + count - 1));
    } else if (source) {
        tell("removing", source->path(), first, last);
        begin(rangeText("removed", source->path(), first, last));
    } else {
        begin({});
    }
    if (source)
        removeSlots(*source, first, last);
    if (target)
        insertSlots(*target, row, count);
}

QString PlainMirror::pathsOf(const Parents& parents)
{
    QStringList paths;
    for (const QPersistentModelIndex& parent : parents) {
        if (const Item* item = find(parent))
            paths << item->path();
    }
    return paths.isEmpty() ? QString() : ' ' + paths.join(QStringLiteral(", "));
}

void PlainMirror::beginLayout(const Parents& parents)
{
    m_lines << "layout changing" + pathsOf(parents) + " sorted rows";
    for (const QPersistentModelIndex& parent : parents) {
        if (Item* item = find(parent)) {
            const size_t slotCount = item->children.size();
            item->children.clear();
            item->children.resize(slotCount);
        }
    }
}

void PlainMirror::beginReset()
{
    const int rows = m_model.rowCount();
    if (rows < 1)
        return;
    tell("removing", m_mount.path(), 0, rows - 1);
    begin(rangeText("removed", m_mount.path(), 0, rows - 1));
    m_mount.children.clear();
    m_isResetting = true;
}

void PlainMirror::endReset()
{
    if (std::exchange(m_isResetting, false))
        end();
    const int rows = m_model.rowCount();
    if (rows < 1)
        return;
    tell("inserting", m_mount.path(), 0, rows - 1);
    tell("inserted", m_mount.path(), 0, rows - 1);
}

void PlainMirror::change(const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    QString rolesText;
    for (const int role : roles)
        rolesText += QStringLiteral("%1%2").arg(rolesText.isEmpty() ? " roles " : ",").arg(role);
    QStringList run;
    const auto finishRun = [&] {
        if (!run.isEmpty())
            m_lines << "changed " + run.first() + (run.size() > 1 ? " .. " + run.last() : QString()) + rolesText;
        run.clear();
    };
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        if (const Item* item = find(m_model.index(row, 0, topLeft.parent())))
            run << item->path();
        else
            finishRun();
    }
    finishRun();
}
