#pragma once

#include <datamodels/datamodels_export.h>
#include <host/images/tessen_image_cache.h>

#include <QAbstractListModel>

#include <memory>

struct ModelScopes;

namespace datamodels {

/// The facts of an image file as a table of names and values.
///
/// Roles: "display" (the name) and "value". Rows of a described file: "Width", "Height", "Depth", "FileSize" (text, in
/// megabytes), "Mip count", "BytesPerPixel", "BytesPerChannel", "Compression", "Format", "Lod Mode". While a query runs
/// there is one row "Loading..." with an empty value; without a description, as at the start, "Format" with "unknown".
///
/// Signals: another file name is told by `fileNameChanged`, then a reset leaves the row "Loading...". The answer comes
/// through the event loop: a `dataChanged` makes that row the first of the facts, the others are inserted one by one.
/// A change of the file on the disk goes the same way from the reset on.
///
/// Thread: GUI. Setting a file name waits for the query before it.
class DATAMODELS_API ImageInfoModel : public QAbstractListModel, public TessenImageCache::CacheListener
{
    Q_OBJECT
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)

public:
    enum Role
    {
        ValueRole = Qt::UserRole
    };

    explicit ImageInfoModel(QObject* parent = nullptr);
    /// Ends the query and waits for it.
    ~ImageInfoModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QString& fileName() const override;
    void onImageChanged() override;

    void setFileName(const QString& fileName);

Q_SIGNALS:
    void fileNameChanged();

private:
    friend struct ::ModelScopes;
    struct Private;

    std::unique_ptr<Private> d;
};

} // namespace datamodels
