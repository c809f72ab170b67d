#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/i_asset_model.h>
#include <host/asset/inherits.h>
#include <host/signals/signal.h>

#include <QAbstractItemModel>

/// The base of asset models: the role names, and double clicks as a signal. Rows, hover and the place of an object are
/// left to the derived class.
///
/// Role names: Qt's own, and those of `SceneRoles`. Thread: GUI only.
class DATAMODELS_API AssetModel : public QAbstractItemModel, public Ozy::Inherits<IAssetModel>
{
public:
    explicit AssetModel(QObject* parent = nullptr);
    ~AssetModel() override;

    QHash<int, QByteArray> roleNames() const override;

    QAbstractItemModel* itemModel() override { return this; }
    QModelIndex mapIndex(const QModelIndex& index) const override { return index; }
    ryk::Connection connectOnDoubleClicked(std::function<void(QModelIndex)> callback) const override;
    void onDoubleClicked(const QModelIndex& index) override;

private:
    mutable ryk::Signal<void(QModelIndex)> m_doubleClicked;
};
