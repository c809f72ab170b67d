#include <datamodels/graph/graph_model.h>

#include <host/base/debug.h>

#include <QQmlEngine>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace datamodels {
namespace {

constexpr int itemDataRole = Qt::UserRole;

// An edge of the same direction between the same vertices stands in both sets, so the smaller one tells.
bool edgeHasDuplicate(const Edge* edge)
{
    const auto& out = edge->getFromVertex()->getOutEdges();
    const auto& in = edge->getToVertex()->getInEdges();
    const auto& smaller = out.size() < in.size() ? out : in;
    const auto& larger = out.size() < in.size() ? in : out;
    return std::any_of(smaller.begin(), smaller.end(),
                       [&larger](Edge* candidate) { return larger.count(candidate) != 0; });
}

template <class T>
int insertionRow(const ElementList<T>& list, int row)
{
    return row == -1 ? list.size() : row;
}

template <class T>
T* ownedByCpp(void* element)
{
    QQmlEngine::setObjectOwnership(static_cast<QObject*>(element), QQmlEngine::CppOwnership);
    return static_cast<T*>(element);
}

} // namespace

GraphModel::GraphModel(QObject* parent) : QAbstractItemModel(parent) {}

QModelIndex GraphModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column != 0)
        return {};
    if (!parent.isValid())
        return createIndex(row, 0, nullptr);

    OZY_ASSERT(parent.row() == 0 || parent.row() == 1);
    QObject* element = nullptr;
    if (parent.row() == 0)
        element = m_edges.value(row);
    else
        element = m_vertices.value(row);
    return element ? createIndex(row, 0, element) : QModelIndex();
}

QModelIndex GraphModel::parent(const QModelIndex& child) const
{
    if (!elementOf(child))
        return {};
    const auto* element = data(child, itemDataRole).value<QObject*>();
    return qobject_cast<const Vertex*>(element) ? verticesIndex() : edgesIndex();
}

int GraphModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return 2;
    if (parent.internalPointer())
        return 0;

    OZY_ASSERT(parent.row() == 0 || parent.row() == 1);
    return parent.row() == 0 ? m_edges.size() : m_vertices.size();
}

int GraphModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant GraphModel::data(const QModelIndex& index, int role) const
{
    void* const element = elementOf(index);
    if (!element || role != itemDataRole)
        return {};
    return QVariant::fromValue(static_cast<QObject*>(element));
}

bool GraphModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    return QAbstractItemModel::setData(index, value, role);
}

QHash<int, QByteArray> GraphModel::roleNames() const
{
    return {{itemDataRole, "itemData"}};
}

void GraphModel::removeItem(const QModelIndex& index)
{
    OZY_ASSERT(index.isValid());
    if (parent(index).row() != 0)
        removeVertex(static_cast<Vertex*>(elementOf(index)));
    else
        removeEdge(static_cast<Edge*>(elementOf(index)));
}

Vertex* GraphModel::getVertex(const QModelIndex& ind) const
{
    OZY_ASSERT(ind.isValid());
    OZY_ASSERT(parent(ind).row() == 1);
    return ownedByCpp<Vertex>(elementOf(ind));
}

Edge* GraphModel::getEdge(const QModelIndex& ind) const
{
    OZY_ASSERT(ind.isValid());
    OZY_ASSERT(parent(ind).row() == 0);
    return ownedByCpp<Edge>(elementOf(ind));
}

QObject* GraphModel::getItem(const QModelIndex& ind) const
{
    OZY_ASSERT(ind.isValid());
    return ownedByCpp<QObject>(elementOf(ind));
}

void GraphModel::clearData()
{
    replaceLists({}, {});
}

bool GraphModel::addVertex(Vertex* vertex, int row)
{
    const int target = insertionRow(m_vertices, row);
    if (!vertex || m_vertices.contains(vertex) || target < 0 || target > m_vertices.size())
        return false;

    {
        const ModelScopes::InsertRows scope(*this, verticesIndex(), static_cast<std::size_t>(target), 1);
        m_vertices.insert(target, vertex);
    }
    if (m_vertices.size() == 1)
        Q_EMIT isEmptyChanged();
    return true;
}

bool GraphModel::addEdge(Edge* edge, int row)
{
    const int target = insertionRow(m_edges, row);
    if (!edge || !edge->getFromVertex() || !edge->getToVertex() || target < 0 || target > m_edges.size())
        return false;
    if (m_edges.contains(edge) || edgeHasDuplicate(edge))
        return false;

    const bool left = edge->getFromVertex()->insertOutEdge(edge);
    const bool entered = edge->getToVertex()->insertInEdge(edge);
    const bool r = left && entered;
    OZY_ASSERT(r);

    const ModelScopes::InsertRows scope(*this, edgesIndex(), static_cast<std::size_t>(target), 1);
    m_edges.insert(target, edge);
    return true;
}

void GraphModel::removeVertex(Vertex* v)
{
    if (!OZY_ASSERT(v))
        return;

    // Copies, and a second look at the sets: slots may remove edges of their own.
    const std::vector<Edge*> entering(v->getInEdges().begin(), v->getInEdges().end());
    for (Edge* edge : entering) {
        if (v->getInEdges().count(edge) != 0)
            unlistEdge(edge, edge->getFromVertex(), &Vertex::eraseOutEdge);
    }

    // A self-loop went with the entering edges, and is not among these any more.
    const std::vector<Edge*> leaving(v->getOutEdges().begin(), v->getOutEdges().end());
    for (Edge* edge : leaving) {
        if (v->getOutEdges().count(edge) != 0)
            unlistEdge(edge, edge->getToVertex(), &Vertex::eraseInEdge);
    }

    const int row = m_vertices.rowOf(v);
    if (row == -1)
        return;
    {
        const ModelScopes::RemoveRows scope(*this, verticesIndex(), static_cast<std::size_t>(row), 1);
        m_vertices.removeAt(row);
    }
    if (m_vertices.empty()) {
        OZY_ASSERT(m_edges.empty());
        Q_EMIT isEmptyChanged();
    }
}

void GraphModel::unlistEdge(Edge* edge, Vertex* otherEnd, bool (Vertex::*erase)(Edge*))
{
    const int row = m_edges.rowOf(edge);
    std::optional<ModelScopes::RemoveRows<GraphModel>> scope;
    if (row != -1) {
        scope.emplace(*this, edgesIndex(), static_cast<std::size_t>(row), 1);
        m_edges.removeAt(row);
    }
    const bool r = (otherEnd->*erase)(edge);
    OZY_ASSERT(r);
}

void GraphModel::removeEdge(Edge* e)
{
    if (!OZY_ASSERT(e) || !e->getFromVertex() || !e->getToVertex())
        return;

    const bool left = e->getFromVertex()->eraseOutEdge(e);
    const bool entered = e->getToVertex()->eraseInEdge(e);
    const bool r = left && entered;
    OZY_ASSERT(r);

    const int row = m_edges.rowOf(e);
    if (row == -1)
        return;
    const ModelScopes::RemoveRows scope(*this, edgesIndex(), static_cast<std::size_t>(row), 1);
    m_edges.removeAt(row);
}

bool GraphModel::moveRow(const QModelIndex& sourceParent, int sourceRow, const QModelIndex& destinationParent,
                         int destinationRow)
{
    if (!sourceParent.isValid() || !destinationParent.isValid() || sourceParent != destinationParent)
        return false;
    if (sourceRow == destinationRow)
        return true;
    if (!m_vertices.value(sourceRow) || !m_vertices.value(destinationRow))
        return false;

    // Intended: the vertices move whatever the container and whatever is announced. Qt takes the destination
    // as the row to stand before, so a move down by one is refused by it, and one further down is announced a
    // row too high.
    const bool announced =
        beginMoveRows(sourceParent, sourceRow, sourceRow, destinationParent, destinationRow);
    m_vertices.move(sourceRow, destinationRow);
    if (announced)
        endMoveRows();
    return true;
}

void GraphModel::resetData(QList<Vertex*> vertices, QList<Edge*> edges)
{
    replaceLists(std::move(vertices), std::move(edges));
}

void GraphModel::replaceLists(QList<Vertex*> vertices, QList<Edge*> edges)
{
    {
        const ModelScopes::Reset scope(*this);
        m_vertices.assign(std::move(vertices));
        m_edges.assign(std::move(edges));
    }
    Q_EMIT isEmptyChanged();
}

GraphModel::ContainerType GraphModel::getContainerType(const QModelIndex& index) const
{
    if (!index.isValid() || index.internalPointer() || index.row() > 1)
        return None;
    return index.row() == 0 ? Edges : Vertices;
}

} // namespace datamodels
