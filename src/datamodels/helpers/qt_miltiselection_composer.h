#pragma once

#include <datamodels/datamodels_export.h>
#include <host/base/qt_scoped_connection.h>
#include <host/reflection/multi_selection.h>

#include <QItemSelectionModel>
#include <QPointer>
#include <QVariant>

/// Makes one reflected object of all that is selected in an asset model, for a panel that edits them together. The rows
/// give their objects by the role `SceneRoles::Object`; rows without one take no part. QML knows it as
/// `QtMiltiselectionComposer` of "QelmTools.Misc" 1.0.
///
/// `object` holds a `zarn::ReflectedObject`, an invalid one while nothing is selected. The object stays the same while the
/// selection changes; its properties come and go.
///
/// Signals for a change of the selection: `processingChanged`, objects leave and then join, `objectChanged`,
/// `processingChanged`. A panel waits while `processing`.
///
/// Intended: what is selected before the selection model is set is not taken over, and a null selection model leaves
/// `processing` true.
///
/// Does not own the selection model. Cost: that of merging the objects that join. Thread: GUI only.
class DATAMODELS_API QtMiltiselectionComposer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QItemSelectionModel* selectionModel READ selectionModel WRITE setSelectionModel NOTIFY selectionModelChanged)
    Q_PROPERTY(QVariant object READ object NOTIFY objectChanged)
    Q_PROPERTY(bool processing READ isProcessing WRITE setProcessing NOTIFY processingChanged)

public:
    explicit QtMiltiselectionComposer(QObject* parent = nullptr);
    ~QtMiltiselectionComposer() override;

    QItemSelectionModel* selectionModel() const { return m_selectionModel; }
    /// Begins anew, also with the same one.
    void setSelectionModel(QItemSelectionModel* model);
    QVariant object() const;
    bool isProcessing() const { return m_processing; }
    void setProcessing(bool processing);

Q_SIGNALS:
    void selectionModelChanged();
    void objectChanged();
    void processingChanged();

private Q_SLOTS:
    void selectionChanged(QItemSelection selected, QItemSelection deselected);

private:
    void rebuild();
    void unmerge(const QModelIndexList& indexes);

    QPointer<QItemSelectionModel> m_selectionModel;
    zarn::MultiSelection m_selection;
    qelm::QtScopedConnection m_connection;
    bool m_processing = false;
};
