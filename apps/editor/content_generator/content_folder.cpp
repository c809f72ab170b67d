#include "content_folder.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace generator {

ContentFolder::ContentFolder(const QString& path) : m_folder(path) {}

void ContentFolder::write(const QString& path, const QString& text)
{
    write(path, text.toUtf8());
}

void ContentFolder::write(const QString& path, const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG", 0); // quality 0 asks for the strongest compression
    write(path, bytes);
}

void ContentFolder::write(const QString& path, const QByteArray& bytes)
{
    if (m_failed)
        return;
    m_folder.mkpath(QFileInfo(path).path());
    QFile file(m_folder.filePath(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(file.fileName()), qUtf8Printable(file.errorString()));
        m_failed = true;
        return;
    }
    ++m_fileCount;
}

void ContentFolder::write(const QString& path, const Ozy::Fennel::AtlasTexture::AtlasData& atlas)
{
    if (m_failed)
        return;
    m_folder.mkpath(QFileInfo(path).path());
    m_failed = !Ozy::Fennel::AtlasTexture::makeAtlasFile(m_folder.absoluteFilePath(path).toStdString(), atlas, nullptr);
    ++m_fileCount;
}

} // namespace generator
