#pragma once

#include <datamodels/atlas/atlas_view_data.h>
#include <datamodels/datamodels_export.h>

#include <QObject>
#include <QVector>

/// A slot of an atlas for QML: the pictures of its textures, as URLs that show the channels of the settings.
///
/// `dataChanged` tells that a texture was set. Another channel is not told: views read again then. Owned by its model; the
/// data that it was made from outlives it. Cost of a reading: a look at the disk and a URL a texture. Thread: GUI only.
class DATAMODELS_API QtAtlasSlot : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVector<QString> textures READ textures NOTIFY dataChanged)

public:
    QtAtlasSlot(std::shared_ptr<IAtlasTile> tile, const AtlasViewData& data, QObject* parent = nullptr);
    ~QtAtlasSlot() override;

    /// In the order of `AtlasType`; at most three, since there is none for a texture without a name or a file. A name that is
    /// a URL of an image already stays as it is.
    QVector<QString> textures() const;

Q_SIGNALS:
    void dataChanged();

private:
    std::shared_ptr<IAtlasTile> m_tile;
    const AtlasViewData& m_atlasViewData;
    std::vector<ryk::ScopedConnection> m_connections;
};
