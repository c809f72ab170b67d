#pragma once

#include <datamodels/datamodels_export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace datamodels {

/// The facts of an image file as properties, for a form. No item model.
///
/// Setting a file name takes `valid` back, asks the image cache, and gets the answer through the event loop: the changes of
/// all facts are told in the order of the properties, whether or not they differ, then `validChanged`. Without a
/// description only the latter is told, and the old facts stay.
/// Intended: the same name asks again, and `fileNameChanged` is never sent. A change of the file on the disk is not
/// heard.
///
/// Thread: GUI. Setting a file name waits for the query before it.
class DATAMODELS_API FlatImageInfoModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString fileName READ fileName WRITE setFileName NOTIFY fileNameChanged)
    Q_PROPERTY(bool valid READ valid NOTIFY validChanged)
    Q_PROPERTY(int width READ width NOTIFY widthChanged)
    Q_PROPERTY(int height READ height NOTIFY heightChanged)
    Q_PROPERTY(int depth READ depth NOTIFY depthChanged)
    Q_PROPERTY(int mipCount READ mipCount NOTIFY mipCountChanged)
    Q_PROPERTY(int bytesPerPixel READ bytesPerPixel NOTIFY bytesPerPixelChanged)
    Q_PROPERTY(int bytesPerChannel READ bytesPerChannel NOTIFY bytesPerChannelChanged)
    Q_PROPERTY(QString compression READ compression NOTIFY compressionChanged)
    Q_PROPERTY(QString format READ format NOTIFY formatChanged)

public:
    explicit FlatImageInfoModel(QObject* parent = nullptr);
    /// Ends the query and waits for it.
    ~FlatImageInfoModel() override;

    QString fileName() const;
    void setFileName(const QString& fileName);
    bool valid() const;
    /// In pixels.
    int width() const;
    int height() const;
    int depth() const;
    int mipCount() const;
    int bytesPerPixel() const;
    int bytesPerChannel() const;
    /// "Unknown" until the first answer.
    QString compression() const;
    QString format() const;

Q_SIGNALS:
    void fileNameChanged();
    void validChanged();
    void widthChanged();
    void heightChanged();
    void depthChanged();
    void mipCountChanged();
    void bytesPerPixelChanged();
    void bytesPerChannelChanged();
    void compressionChanged();
    void formatChanged();

private:
    struct Private;

    std::unique_ptr<Private> d;
};

} // namespace datamodels
