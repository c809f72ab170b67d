#pragma once

#include <datamodels/atlas/qt_atlas_slot.h>

#include <QAbstractListModel>

#include <memory>

class QItemSelectionModel;

/// The slots of an atlas for a grid in QML, row by row: `QtAtlasModel { source: context.object }`.
///
/// The role "atlasSlot" is a `QtAtlasSlot*`. The properties tell the grid; sizes are in pixels and 1 without a source, to
/// divide by. A new source is a reset and `sourceChanged`, also if it is the same. A null pointer clears the model, an
/// invalid variant leaves it.
///
/// Does not own the source, which outlives it or is replaced before it goes; what the source shares changes without a
/// word until it is written again. Owns the slots. The number of rows is that of the grid: a source with fewer tiles
/// makes `data` throw `std::out_of_range` behind them. Thread: GUI only.
class DATAMODELS_API QtAtlasModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QVariant source WRITE setSource)
    Q_PROPERTY(QItemSelectionModel* selection WRITE setSelection)
    Q_PROPERTY(int columnCount READ gridColumns NOTIFY sourceChanged)
    Q_PROPERTY(int rowCount READ gridRows NOTIFY sourceChanged)
    Q_PROPERTY(int atlasWidth READ atlasWidth NOTIFY sourceChanged)
    Q_PROPERTY(int atlasHeight READ atlasHeight NOTIFY sourceChanged)

public:
    enum Role
    {
        AtlasSlotRole = Qt::UserRole
    };

    explicit QtAtlasModel(QObject* parent = nullptr);
    ~QtAtlasModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// An `AtlasViewData*`.
    void setSource(const QVariant& source);
    /// Makes the selection one of this model, and does not keep it. Null is refused with an assertion.
    void setSelection(QItemSelectionModel* selection);
    int gridColumns() const;
    int gridRows() const;
    int atlasWidth() const;
    int atlasHeight() const;

Q_SIGNALS:
    void sourceChanged();

private:
    struct Private;

    std::unique_ptr<Private> d;
};
