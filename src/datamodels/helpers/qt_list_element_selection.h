#pragma once

#include <datamodels/datamodels_export.h>
#include <host/base/qt_scoped_connection.h>

#include <QItemSelectionModel>
#include <QPointer>
#include <QQmlParserStatus>

#include <vector>

/// Says of one top-level row of a list whether it is selected and whether it is current: what a delegate binds to, in
/// place of a binding of its own to the selection model.
///
/// Signals: a setter stores, sends its own, then those of `selected` and `current` that differ. A change of the selection
/// that does not touch the row sends nothing, and costs what the number of ranges in it costs. Made by QML, it answers
/// from the completion of the element on.
///
/// Intended: with a selection model, but without a current row, row -1 is current.
///
/// Does not own the selection model; one that dies leaves the answers as they are. Thread: GUI only.
class DATAMODELS_API QtListElementSelection : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    Q_PROPERTY(QItemSelectionModel* selectionModel READ selectionModel WRITE setSelectionModel NOTIFY selectionModelChanged)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY rowChanged)
    Q_PROPERTY(bool selected READ isSelected NOTIFY selectedChanged)
    Q_PROPERTY(bool current READ isCurrent NOTIFY currentChanged)

public:
    explicit QtListElementSelection(QObject* parent = nullptr);
    ~QtListElementSelection() override;

    QItemSelectionModel* selectionModel() const { return m_selectionModel; }
    void setSelectionModel(QItemSelectionModel* model);
    int row() const { return m_row; }
    /// -1 for no row.
    void setRow(int row);
    bool isSelected() const { return m_selected; }
    bool isCurrent() const { return m_current; }

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void rowChanged();
    void selectionModelChanged();
    void selectedChanged();
    void currentChanged();

private:
    QModelIndex getModelIndex() const;
    void onSelectionChanged(const QItemSelection& selected, const QItemSelection& deselected);
    void onCurrentChanged(const QModelIndex& current, const QModelIndex& previous);
    void setSelected(bool selected);
    void setCurrent(bool current);
    void update();

    QPointer<QItemSelectionModel> m_selectionModel;
    std::vector<qelm::QtScopedConnection> m_connections;
    int m_row = -1;
    bool m_complete = true;
    bool m_selected = false;
    bool m_current = false;
};
