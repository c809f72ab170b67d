#pragma once

#include <datamodels/datamodels_export.h>

#include <QAbstractListModel>

#include <memory>

namespace datamodels {

struct ImageAnswer;
struct ImageRows;

/// The four colour channels of an image file: which of them the file has, and which are to be shown.
///
/// Rows: red, green, blue, alpha, always. Roles: "display" and "channelName" (the same text), 256 without a name (the
/// channel's number, unsigned 64 bit: alpha 0, red 1, green 2, blue 3), "channelAvailable", "channelEnabled".
///
/// Another file name is told by `fileNameChanged` and asked for at the image cache, an empty one as well. The answer
/// comes through the event loop and puts "channelEnabled" back to the default, alpha off and the others on; each row that
/// differs is told by `dataChanged`, that of alpha followed by `hasAlphaChanged` if the file has it and the last one had
/// not, or the other way round. Availability goes by the rows: a file of one channel has only red. A file that cannot be
/// described has none.
///
/// Owned by its `ImageModel`, or by whoever made it. Thread: GUI. Setting a file name waits for the query before it.
class DATAMODELS_API ImageChannelsModel : public QAbstractListModel
{
    Q_OBJECT
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)
    Q_PROPERTY(bool hasAlpha READ hasAlpha NOTIFY hasAlphaChanged)

public:
    enum Role
    {
        ChannelRole = Qt::UserRole,
        NameRole,
        AvailableRole,
        EnabledRole
    };

    explicit ImageChannelsModel(QObject* parent = nullptr);
    /// Ends the query and waits for it.
    ~ImageChannelsModel() override;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /// Shows or hides a channel: by "channelEnabled" if the file has it, by `Qt::EditRole` in any case. Intended: tells
    /// of role "channelEnabled" also if the value stays. False for everything else.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    /// Rows of channels that the file has are editable.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QString& fileName() const;
    void setFileName(const QString& fileName);
    bool hasAlpha() const;

Q_SIGNALS:
    void fileNameChanged();
    void hasAlphaChanged();

private:
    friend struct ImageRows;
    struct Private;

    std::unique_ptr<Private> d;
};

} // namespace datamodels
