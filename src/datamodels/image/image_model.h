#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractListModel>

#include <memory>

struct ModelScopes;

namespace datamodels {

class ImageChannelsModel;
struct ImageRows;

/// The images in one file, one row for a plain texture and six for a cube map, each with a URL that shows it with the
/// channels that are chosen in `channelsModel`.
///
/// Roles: "display" and "title" (the side of the cube, else empty), "decoration" (its colour, else an invalid one), "uri"
/// for an image element, "noChannels" (true while no channel is to be shown).
///
/// Signals: a new file name is told by `fileNameChanged`. Rows follow through the event loop: a reset if their number
/// changes, then an insertion for each new row, else `dataChanged` with the roles that differ. Turning a channel asks
/// the cache again and tells new URLs. A file that cannot be described has no rows.
/// Intended: what the channels model says at the start is not looked at; until a channel is turned, the defaults of the
/// request hold.
///
/// Owns `channelsModel`. Thread: GUI. Cost: a query for a file name and for each channel that is turned, in which the
/// call waits for the query before it.
class DATAMODELS_API ImageModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)
    Q_PROPERTY(datamodels::ImageChannelsModel* channelsModel READ channelsModel CONSTANT)

public:
    enum Role
    {
        UriRole = Qt::UserRole,
        TitleRole,
        NoChannelsRole
    };

    explicit ImageModel(QObject* parent = nullptr);
    /// Ends the query and waits for it.
    ~ImageModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// The name that the channels model has.
    const QString& fileName() const;
    void setFileName(const QString& fileName);
    ImageChannelsModel* channelsModel() const;

Q_SIGNALS:
    void fileNameChanged();

private:
    friend struct ImageRows;
    friend struct ::ModelScopes;
    struct Private;

    std::unique_ptr<Private> d;
};

} // namespace datamodels
