// Gives a fuzz target the files of a corpus and then as many random variations of them as it is told. Stands in where no
// fuzzer is at hand that watches the code; the same seed gives the same inputs.
//
//     random_inputs CORPUS COUNT [SEED]
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t length);

namespace {

using Bytes = std::vector<std::uint8_t>;

std::vector<Bytes> filesOf(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());

    std::vector<Bytes> files;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        files.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return files;
}

class Variations
{
public:
    Variations(std::vector<Bytes> corpus, unsigned seed) : m_corpus(std::move(corpus)), m_random(seed) {}

    Bytes next()
    {
        Bytes bytes = m_corpus[below(m_corpus.size())];
        for (std::size_t changes = 1 + below(6); changes > 0; --changes)
            change(bytes);
        return bytes;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }
    std::size_t placeIn(const Bytes& bytes) { return below(bytes.size() + 1); }
    auto at(Bytes& bytes, std::size_t place) { return bytes.begin() + static_cast<std::ptrdiff_t>(place); }

    void change(Bytes& bytes)
    {
        // Heads of CBOR items, whose low bits tell how many bytes of length follow.
        static constexpr std::uint8_t heads[] = {0x00, 0x17, 0x18, 0x1b, 0x3b, 0x40, 0x5b, 0x5f, 0x7b, 0x80, 0x85, 0x9b, 0x9f, 0xbf, 0xf8, 0xff};
        const std::size_t place = placeIn(bytes);
        switch (below(6)) {
        case 0: bytes.insert(at(bytes, place), heads[below(std::size(heads))]); break;
        case 1: bytes.resize(place); break;
        case 2: bytes.insert(at(bytes, place), below(9), static_cast<std::uint8_t>(m_random())); break;
        case 3: join(bytes, place); break;
        default:
            if (place < bytes.size())
                bytes[place] = below(2) ? heads[below(std::size(heads))] : static_cast<std::uint8_t>(m_random());
        }
    }

    /// Puts a piece of another file in.
    void join(Bytes& bytes, std::size_t place)
    {
        Bytes other = m_corpus[below(m_corpus.size())];
        const std::size_t begin = placeIn(other);
        const std::size_t end = std::min(begin + below(24), other.size());
        bytes.insert(at(bytes, place), at(other, begin), at(other, end));
    }

    std::vector<Bytes> m_corpus;
    std::mt19937 m_random;
};

} // namespace

int main(int argc, char** argv)
{
    const std::vector<Bytes> corpus = argc >= 3 ? filesOf(argv[1]) : std::vector<Bytes>();
    if (corpus.empty()) {
        std::fprintf(stderr, "usage: %s CORPUS COUNT [SEED], CORPUS being a folder with files\n", argv[0]);
        return 2;
    }
    for (const Bytes& bytes : corpus)
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());

    const long count = std::atol(argv[2]);
    Variations variations(corpus, argc > 3 ? static_cast<unsigned>(std::atol(argv[3])) : 1U);
    for (long i = 0; i < count; ++i) {
        const Bytes bytes = variations.next();
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::printf("%zu files and %ld variations\n", corpus.size(), count);
    return 0;
}
