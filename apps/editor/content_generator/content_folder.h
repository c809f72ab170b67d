#pragma once

#include <host/engine/atlas_texture.h>

#include <QDir>
#include <QImage>
#include <QString>

namespace generator {

/// Where the content goes. Paths are relative to it; missing folders are made, files are replaced.
/// The first file that cannot be written is reported on stderr, and nothing is written from then on.
class ContentFolder
{
public:
    explicit ContentFolder(const QString& path);

    void write(const QString& path, const QString& text);
    /// As PNG.
    void write(const QString& path, const QImage& image);
    void write(const QString& path, const QByteArray& bytes);
    /// As one file of an atlas.
    void write(const QString& path, const Ozy::Fennel::AtlasTexture::AtlasData& atlas);

    bool failed() const { return m_failed; }
    int fileCount() const { return m_fileCount; }

private:
    QDir m_folder;
    int m_fileCount = 0;
    bool m_failed = false;
};

} // namespace generator
