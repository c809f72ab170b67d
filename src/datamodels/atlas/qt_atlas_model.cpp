#include <datamodels/atlas/qt_atlas_model.h>

#include <host/base/debug.h>

#include <QItemSelectionModel>

#include <algorithm>
#include <stdexcept>

struct QtAtlasModel::Private
{
    explicit Private(QtAtlasModel* model) : model(model) {}
    ~Private() { deleteSlots(); }

    void deleteSlots()
    {
        qDeleteAll(m_slots);
        m_slots.clear();
    }
    void setData(AtlasViewData* data)
    {
        if (m_data)
            deleteSlots();
        m_data = data;
        if (!m_data)
            return;
        for (const std::shared_ptr<IAtlasTile>& tile : m_data->tiles)
            m_slots.push_back(new QtAtlasSlot(tile, *m_data, model));
    }
    QtAtlasSlot* slotAt(int row) const
    {
        if (static_cast<std::size_t>(row) >= m_slots.size())
            throw std::out_of_range("invalid vector subscript");
        return m_slots[static_cast<std::size_t>(row)];
    }

    QtAtlasModel* model;
    AtlasViewData* m_data = nullptr;
    std::vector<QtAtlasSlot*> m_slots;
};

QtAtlasModel::QtAtlasModel(QObject* parent) : QAbstractListModel(parent), d(std::make_unique<Private>(this)) {}

QtAtlasModel::~QtAtlasModel() = default;

/// Intended: by the sizes and not by the slots.
int QtAtlasModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : std::max(gridColumns() * gridRows(), 0);
}

QVariant QtAtlasModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    QtAtlasSlot* const slot = d->slotAt(index.row());
    return slot && role == AtlasSlotRole ? QVariant::fromValue(slot) : QVariant();
}

QHash<int, QByteArray> QtAtlasModel::roleNames() const
{
    return {{AtlasSlotRole, "atlasSlot"}};
}

void QtAtlasModel::setSource(const QVariant& source)
{
    if (!source.isValid())
        return;
    AtlasViewData* const data = source.value<AtlasViewData*>();
    beginResetModel();
    d->setData(data);
    endResetModel();
    Q_EMIT sourceChanged();
}

void QtAtlasModel::setSelection(QItemSelectionModel* selection)
{
    if (OZY_ASSERT(selection))
        selection->setModel(this);
}

int QtAtlasModel::gridColumns() const
{
    return d->m_data ? d->m_data->tilesCount.x : 0;
}

int QtAtlasModel::gridRows() const
{
    return d->m_data ? d->m_data->tilesCount.y : 0;
}

int QtAtlasModel::atlasWidth() const
{
    return d->m_data ? d->m_data->atlasSize.x : 1;
}

int QtAtlasModel::atlasHeight() const
{
    return d->m_data ? d->m_data->atlasSize.y : 1;
}
