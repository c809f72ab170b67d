#include <host/formats/image_formats.h>
#include <host/formats/open_image_io/decoded_size.h>
#include <host/formats/open_image_io/pictures.h>

namespace Ozy {
namespace {

class OpenImageIoFormats final : public ImageFormats
{
public:
    std::optional<ImageFacts> facts(const std::string& path, std::string& reason) override { return headerFacts(path, reason); }
    Decoded decode(const std::string& path, int image, int mip, const IsWanted& isWanted) override
    {
        return decodeFile(path, image, mip, isWanted);
    }
    Decoded decodeDdsBlocks(std::vector<unsigned char> file, const IsWanted& isWanted) override
    {
        return Ozy::decodeDdsBlocks(std::move(file), isWanted);
    }
    QSize decodedSize(const std::string& path, int largest) override { return Ozy::decodedSize(path, largest); }
};

} // namespace
} // namespace Ozy

extern "C" Q_DECL_EXPORT Ozy::ImageFormats* datamodels_image_formats()
{
    static Ozy::OpenImageIoFormats formats;
    return &formats;
}
