// One input for the reader of atlas files: as a file, and as the content of a file whose frame is right, since a random
// input hardly ever has a checksum that fits. What is accepted has to come out of a second writing as it went in.
#include <host/engine/atlas_file.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using Ozy::Fennel::AtlasFile;

namespace {

void require(bool isMet, const char* what)
{
    if (isMet)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t length)
{
    const QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(input), static_cast<int>(length));

    const AtlasFile::Decoded file = AtlasFile::decode(bytes);
    require(file.data.has_value() == file.fault.empty(), "a refusal without a reason, or a reason without a refusal");

    if (const auto data = AtlasFile::decodeContent(bytes)) {
        const bool isTooLarge = AtlasFile::fault(*data) != nullptr;
        const AtlasFile::Decoded again = AtlasFile::decode(AtlasFile::encode(*data));
        require(isTooLarge ? !again.data : again.data == data, "other data after a second writing");
    }
    return 0;
}
