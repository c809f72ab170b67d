#include <host/engine/atlas_texture.h>

#include <host/base/debug.h>
#include <host/engine/atlas_file.h>

#include <QFile>
#include <QSaveFile>

namespace Ozy::Fennel {
namespace {

/// A disk that gets full takes a part of the bytes, and tells the reason only when asked to take more.
bool writeAll(QIODevice& file, const QByteArray& bytes)
{
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + written, bytes.size() - written);
        if (taken <= 0)
            return false;
        written += taken;
    }
    return true;
}

/// Whether the file could be read again. A tile takes at most 30 bytes beside its path.
bool isShortEnough(const AtlasTexture::AtlasData& data)
{
    quint64 length = 64;
    for (const auto& tile : data.tiles)
        length += 30 + tile.second.size();
    return length <= static_cast<quint64>(AtlasFile::maximumLength);
}

/// Writes an atlas file; the reason if that fails.
QString faultOfWriting(const std::string& path, const AtlasTexture::AtlasData& data)
{
    if (const char* fault = AtlasFile::fault(data))
        return QString::fromLatin1(fault);
    if (!isShortEnough(data))
        return QStringLiteral("is longer than 64 MiB");
    const QByteArray bytes = AtlasFile::encode(data);
    QSaveFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly) || !writeAll(file, bytes) || !file.commit())
        return file.errorString();
    return {};
}

} // namespace

bool AtlasTexture::makeAtlasFile(const std::string& path, const AtlasData& data, void*)
{
    const QString fault = faultOfWriting(path, data);
    if (!fault.isEmpty())
        DebugMessageHelper(Priority::refusal, "engine")
            .message("Could not write atlas file '%s': %s. It is as it was before.\n", path.c_str(), qUtf8Printable(fault));
    return fault.isEmpty();
}

} // namespace Ozy::Fennel
