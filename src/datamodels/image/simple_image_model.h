#pragma once

#include <datamodels/datamodels_export.h>
#include <host/images/tessen_image_cache.h>
#include <host/images/tessen_image_request_desc.h>
#include <host/jobs/async_manager.h>

#include <QAbstractListModel>

#include <vector>

struct ModelScopes;

namespace datamodels {

struct ImageAnswer;
struct ImageRows;

/// The images in one file for a small preview, with a status: a row each with the URL that shows it and the side of a cube
/// that it is; of an atlas one row that holds a snapshot for the atlas view models.
///
/// Roles: "source", "imageSide" (an `ImageSide`; the front of a plain image), "atlasData" (an `AtlasViewData*`, null for an
/// image) and "atlasType" (-1 for an image).
///
/// Signals: a new file name is told by `fileNameChanged`, then `statusChanged`. The answer comes through the event loop:
/// `channelCountChanged`, the rows (a reset if their number changes, then an insertion for each new one, else `dataChanged`
/// with the roles that differ), and `statusChanged` last. A change of the file on the disk resets and asks anew.
/// Intended: `statusText` goes without a signal of its own when a query starts. A change of `useAlpha` asks anew without
/// clearing, which appends a second row for an atlas; it asks even for the empty name. An atlas that follows a single image
/// has the second row too, and a single image that follows an atlas has its row.
///
/// Bad input: a file that cannot be described ends in `Error` with a text; an atlas that is refused has a row without
/// tiles, and the log tells why. An "atlasData" lives as long as its row. Thread: GUI, which also reads an atlas.
class DATAMODELS_API SimpleImageModel : public QAbstractListModel, public TessenImageCache::CacheListener
{
    Q_OBJECT
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)
    Q_PROPERTY(Status status READ status NOTIFY statusChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)
    Q_PROPERTY(unsigned channelCount READ channelCount NOTIFY channelCountChanged)
    Q_PROPERTY(bool useAlpha READ useAlpha WRITE setUseAlpha NOTIFY useAlphaChanged)

public:
    enum Status
    {
        Empty = 0,
        Loading = 1,
        Error = 2,
        Ready = 3,
        Undefined = 4 ///< never set
    };
    Q_ENUM(Status)

    enum ImageSide
    {
        ImageSideRight = 0,
        ImageSideLeft = 1,
        ImageSideTop = 2,
        ImageSideBottom = 3,
        ImageSideFront = 4,
        ImageSideback = 5 // Intended: the small letter is part of the name that QML knows.
    };
    Q_ENUM(ImageSide)

    enum Role
    {
        SourceRole = Qt::UserRole,
        ImageSideRole,
        AtlasDataRole,
        AtlasTypeRole
    };

    explicit SimpleImageModel(QObject* parent = nullptr);
    /// Ends the query and waits for it.
    ~SimpleImageModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QString& fileName() const override { return m_fileName; }
    void onImageChanged() override;

    /// The empty name ends the query and clears the rows at once.
    void setFileName(const QString& fileName);
    Status status() const { return m_status; }
    QString statusText() const { return m_statusText; }
    unsigned channelCount() const { return m_channelCount; }
    bool useAlpha() const { return m_useAlpha; }
    void setUseAlpha(bool useAlpha);

Q_SIGNALS:
    void fileNameChanged();
    void statusChanged();
    void channelCountChanged();
    void useAlphaChanged();

private:
    friend struct ImageRows;
    friend struct ::ModelScopes;
    struct Image;
    template <class Model>
    friend void queryImage(Ozy::AsyncManager::Job&, const QString&, Model*);

    void load();
    void clear();
    void update(const ImageAnswer& answer);
    void updateRows(const ImageAnswer& answer);
    void updateRow(int row, const QUrl& source, ImageSide side);
    void appendAtlas();
    void setStatus(Status status);

    TessenImageRequestDesc m_request;
    QString m_fileName;
    Status m_status = Empty;
    QString m_statusText;
    unsigned m_channelCount = 0;
    bool m_useAlpha = false;
    Ozy::AsyncManager::Job m_job;
    std::vector<Image> m_images;
};

} // namespace datamodels
