#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractListModel>
#include <QList>
#include <QString>

namespace datamodels {

/// The list behind a graph view's "create" palette. The view raises the signal of the concrete requestor when
/// a row is picked; a plug-in that listens makes the element. The requestor itself creates nothing.
///
/// Roles: `Qt::UserRole` "itemID", an `int`; `Qt::UserRole + 1` "itemLabel", a `QString`.
/// A derived class fills `m_items`, before the model has a view or inside the brackets of
/// `QAbstractListModel`; the items are owned here. An index of another model with a row past the list is the
/// caller's fault. Thread: GUI.
class DATAMODELS_API PrimitiveCreationRequestor : public QAbstractListModel
{
    Q_OBJECT

public:
    /// One row of the palette.
    struct Item
    {
        int id = 0;
        QString label;
    };

    explicit PrimitiveCreationRequestor(QObject* parent = nullptr);
    ~PrimitiveCreationRequestor() override = 0;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

protected:
    QList<Item*> m_items;
};

} // namespace datamodels
