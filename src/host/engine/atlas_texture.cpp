#include <host/engine/atlas_texture.h>

#include <host/base/debug.h>
#include <host/engine/atlas_file.h>

#include <QFile>
#include <QSaveFile>

namespace Ozy::Fennel {
namespace {

QString written(const std::string& path, const AtlasTexture::AtlasData& data)
{
    if (const char* fault = AtlasFile::fault(data))
        return QString::fromLatin1(fault);
    const QByteArray bytes = AtlasFile::encode(data);
    QSaveFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return file.errorString();
    return {};
}

} // namespace

bool AtlasTexture::makeAtlasFile(const std::string& path, const AtlasData& data, void*)
{
    const QString fault = written(path, data);
    if (!fault.isEmpty())
        DebugMessageHelper(Priority::refusal, "engine")
            .message("Could not write atlas file '%s': %s. It is as it was before.\n", path.c_str(), qUtf8Printable(fault));
    return fault.isEmpty();
}

} // namespace Ozy::Fennel
