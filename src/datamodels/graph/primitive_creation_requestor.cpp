#include <datamodels/graph/primitive_creation_requestor.h>

namespace datamodels {
namespace {

constexpr int itemIdRole = Qt::UserRole;
constexpr int itemLabelRole = Qt::UserRole + 1;

} // namespace

PrimitiveCreationRequestor::PrimitiveCreationRequestor(QObject* parent) : QAbstractListModel(parent) {}

PrimitiveCreationRequestor::~PrimitiveCreationRequestor()
{
    while (!m_items.empty())
        delete m_items.takeLast();
}

int PrimitiveCreationRequestor::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_items.size();
}

QVariant PrimitiveCreationRequestor::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Item* item = m_items.value(index.row());
    if (!item)
        return {};

    switch (role) {
    case itemIdRole:
        return item->id;
    case itemLabelRole:
        return item->label;
    default:
        return {};
    }
}

QHash<int, QByteArray> PrimitiveCreationRequestor::roleNames() const
{
    return {{itemIdRole, "itemID"}, {itemLabelRole, "itemLabel"}};
}

} // namespace datamodels
