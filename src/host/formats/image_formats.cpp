#include <host/formats/image_formats.h>

#include <host/base/debug.h>

#include <QFile>
#include <QFileInfo>
#include <QLibrary>

#include <dlfcn.h>

namespace Ozy {
namespace {

constexpr const char* noDecoders = "no decoders of images are there";

class NoFormats final : public ImageFormats
{
public:
    std::optional<ImageFacts> facts(const std::string&, std::string& reason) override
    {
        reason = noDecoders;
        return {};
    }
    Decoded decode(const std::string&, int, int, const IsWanted&) override { return Decoded::refused(noDecoders); }
    Decoded decodeDdsBlocks(std::vector<unsigned char>, const IsWanted&) override { return Decoded::refused(noDecoders); }
    QSize decodedSize(const std::string&, int) override { return {}; }
};

/// The folder of modules beside the shared library that this is part of.
QString moduleFolder()
{
    Dl_info library{};
    dladdr(reinterpret_cast<const void*>(&moduleFolder), &library);
    return QFileInfo(QFile::decodeName(library.dli_fname)).absolutePath() + "/datamodels/";
}

ImageFormats* loadedFormats()
{
    QLibrary module(moduleFolder() + "libdatamodels_image_formats.so");
    module.setLoadHints(QLibrary::PreventUnloadHint);
    using Entry = ImageFormats* (*)();
    if (const auto entry = reinterpret_cast<Entry>(module.resolve("datamodels_image_formats")))
        return entry();
    DebugMessageHelper(Priority::structural, "images")
        .message("The decoders of images could not be loaded: %s.\n", qUtf8Printable(module.errorString()));
    return nullptr;
}

} // namespace

ImageFormats::~ImageFormats() = default;

ImageFormats& ImageFormats::instance()
{
    static NoFormats none;
    static ImageFormats* const formats = loadedFormats();
    return formats ? *formats : none;
}

} // namespace Ozy
