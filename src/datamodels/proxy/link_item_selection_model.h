#pragma once

#include <datamodels/datamodels_export.h>
#include <host/base/qt_scoped_connection.h>

#include <QItemSelectionModel>
#include <QPointer>

#include <memory>
#include <vector>

class KModelIndexProxyMapper;

namespace qelm::datamodels::proxy {

/// Keeps a selection on one model (the left one) in step with the selection on another (the right, linked one) of the
/// same chain of proxies, both ways: a view on a filter selects through this object, and a view on the whole tree
/// follows. Rows that the other side does not show are left out; current indexes travel while `isCurrentSyncEnabled`.
///
/// Make it with the model and the linked selection; without a model from the constructor it never links. A selection
/// goes out with the flags with which it came, first to this side, then to the other. What comes from the other side is
/// deselected first, then selected. New rows or columns and a reset of the left model take the selection over from the
/// right.
///
/// Intended: a `layoutChanged` of the left model shrinks the selection of both sides to the current row. A reset of the
/// left model clears the linked selection. `select` with an invalid index clears it whatever the flags. The notify
/// signal of the property is never sent.
///
/// Owns neither model nor selection; each may die first, after which nothing is forwarded. Selecting while unlinked
/// fails the assertion "m_indexMapper" and selects on this side only. Rows of another model are not selected. Thread:
/// GUI only. Cost: that of mapping the selection through the chain.
class DATAMODELS_API LinkItemSelectionModel : public QItemSelectionModel
{
    Q_OBJECT
    Q_PROPERTY(QItemSelectionModel* linkedItemSelectionModel READ linkedItemSelectionModel WRITE
                   setLinkedItemSelectionModel NOTIFY linkedItemSelectionModelChanged)

public:
    LinkItemSelectionModel(QAbstractItemModel* model, QItemSelectionModel* linked, QObject* parent = nullptr);
    explicit LinkItemSelectionModel(QObject* parent = nullptr);
    ~LinkItemSelectionModel() override;

    void select(const QItemSelection& selection, SelectionFlags flags) override;
    void select(const QModelIndex& index, SelectionFlags flags) override;

    QItemSelectionModel* linkedItemSelectionModel() const { return m_linkedItemSelectionModel; }
    /// Takes the selection of the linked side over. Null unlinks and clears this side.
    void setLinkedItemSelectionModel(QItemSelectionModel* linked);

    bool isCurrentSyncEnabled() const { return m_currentSyncEnabled; }
    void setCurrentSyncEnabled(bool enabled) { m_currentSyncEnabled = enabled; }

Q_SIGNALS:
    void linkedItemSelectionModelChanged();

private Q_SLOTS:
    void sourceSelectionChanged(QItemSelection selected, QItemSelection deselected);
    void sourceCurrentChanged(QModelIndex current);
    void slotCurrentChanged(QModelIndex current);
    void rowsInserted(QModelIndex parent, int first, int last);
    void columnsInserted(QModelIndex parent, int first, int last);
    void modelReset();
    void layoutChanged();

private:
    void init();
    void rebuild();

    QPointer<QAbstractItemModel> m_model;
    QPointer<QItemSelectionModel> m_linkedItemSelectionModel;
    std::unique_ptr<KModelIndexProxyMapper> m_indexMapper;
    bool m_forwarding = false;
    bool m_currentSyncEnabled = true;
    std::vector<QtScopedConnection> m_connections;
};

} // namespace qelm::datamodels::proxy
