#include <datamodels/history_model.h>

#include <host/undo/undo_redo.h>

HistoryModel::HistoryModel(Ozy::UndoRedo* undoRedo) : m_undoRedo(undoRedo) {}

HistoryModel::~HistoryModel() = default;

int HistoryModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_undoRedo ? 0 : static_cast<int>(m_undoRedo->historySize());
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || role != Qt::DisplayRole || !m_undoRedo)
        return {};
    const Ozy::BasicStringRef<char> name = m_undoRedo->barrierName(static_cast<std::size_t>(index.row()));
    return QString::fromUtf8(name.data(), static_cast<int>(name.size()));
}
