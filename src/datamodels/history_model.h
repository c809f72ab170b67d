#pragma once

#include <datamodels/datamodels_export.h>
#include <host/signals/connection.h>

#include <QAbstractListModel>

#include <vector>

namespace Ozy {
class UndoRedo;
}

/// The steps of an undo history as rows, oldest first, with their names under `Qt::DisplayRole`.
///
/// Intended: it sends no notifications. Rows are counted anew at each question, and a view follows by a reset from
/// outside or by reading again; a derived class that hears of changes resets itself and keeps its connections here.
/// The history is not owned, and must outlive the model. Thread: GUI only.
class DATAMODELS_API HistoryModel : public QAbstractListModel
{
public:
    explicit HistoryModel(Ozy::UndoRedo* undoRedo);
    ~HistoryModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

protected:
    Ozy::UndoRedo* undoRedo() const { return m_undoRedo; }

    // Set up by derived classes.
    std::vector<ryk::ScopedConnection>& connections() { return m_connections; }

private:
    Ozy::UndoRedo* m_undoRedo;
    std::vector<ryk::ScopedConnection> m_connections;
};
