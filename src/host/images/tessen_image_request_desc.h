#pragma once

#include <host/base/host_export.h>

#include <QMetaType>
#include <QString>
#include <QUrl>

#include <optional>

/// One picture that the image provider can show: a file, one of its images, and how to show it.
///
/// A value; its URL holds all of it, so that a different description has a different URL, and any file name comes back
/// from it as it was. The URL of a file that has changed on the disk since the program knows it differs from the one
/// before, so that views load it again; both mean the same description. Threads: any, one object at a time.
class DATAMODELS_HOST_API TessenImageRequestDesc
{
public:
    enum Channel
    {
        Alpha = 0,
        Red = 1,
        Green = 2,
        Blue = 3
    };

    /// No file, the first image, red, green and blue visible, alpha not.
    TessenImageRequestDesc() = default;

    /// The absolute path of a file or the name of a resource.
    void setFileName(const QString& fileName) { m_fileName = fileName; }
    const QString& fileName() const { return m_fileName; }

    /// Counts the sub-images from 0; the sides of a cube map are +X, -X, +Y, -Y, +Z, -Z. What the file does not have
    /// gives an error when it is loaded.
    void setImageIndex(int index) { m_imageIndex = index; }
    int imageIndex() const { return m_imageIndex; }

    /// Hidden colours are black. Without alpha the picture is opaque, with alpha alone it shows alpha as grey. A channel
    /// outside of 0..3 is ignored, and is never visible.
    void setChannelVisible(Channel channel, bool isVisible) { setChannelVisible(static_cast<int>(channel), isVisible); }
    void setChannelVisible(int channel, bool isVisible);
    bool isChannelVisible(Channel channel) const { return isChannelVisible(static_cast<int>(channel)); }
    bool isChannelVisible(int channel) const;
    bool hasVisibleChannels() const { return m_channels != 0; }

    /// The mip level, 0 for the full size. Those that the file does not have give an error when it is loaded.
    void setMip(int mip) { m_mip = mip; }
    int mip() const { return m_mip; }

    /// For pictures of real light (EXR, HDR, half and float DDS): stops by which they are brightened, -64 to 64. Bounded
    /// to these, and 0 for what is no number. Others do not look at it.
    void setExposure(float stops);
    float exposure() const { return m_exposure; }

    bool operator==(const TessenImageRequestDesc&) const = default;

    /// The picture for the `source` of a QML image, given that the engine has the provider under `providerId()`.
    QUrl toUrl() const;
    /// Nothing for a URL that `toUrl` does not give.
    static std::optional<TessenImageRequestDesc> fromUrl(const QUrl& url);
    /// The same for what a provider is asked for: the URL without "image://" and the provider.
    static std::optional<TessenImageRequestDesc> fromId(const QString& id);

    static QString providerId() { return QStringLiteral("tessen"); }

private:
    QString id(unsigned revision) const;

    QString m_fileName;
    int m_imageIndex = 0;
    unsigned m_channels = 1u << Red | 1u << Green | 1u << Blue;
    int m_mip = 0;
    float m_exposure = 0;
};

Q_DECLARE_METATYPE(TessenImageRequestDesc)
