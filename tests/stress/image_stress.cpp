// Several threads ask for pictures that do not all fit into the room, change their minds, and have files dropped and the
// room changed meanwhile. Each that asks gets one answer, and whoever still wants it the right picture.
#include <host/images/decoded_images.h>

#include <QColor>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <thread>
#include <vector>

namespace {

constexpr int fileCount = 6;
constexpr int side = 64;
constexpr int threadCount = 4;
constexpr int requestCount = 3000;

/// A grey picture of one byte a pixel.
void writePicture(const QString& path, char grey)
{
    std::array<quint32, 37> words{}; // of the header; the disk has them in this order, as the machine does
    words[0] = 0x20534444;
    words[1] = 124;
    words[3] = words[4] = side;
    words[19] = 32;
    words[20] = 4;
    words[21] = 0x30315844;
    words[32] = 61;
    words[33] = 3;
    words[35] = 1;
    const QByteArray header(reinterpret_cast<const char*>(words.data()), sizeof words);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(header + QByteArray(side * side, grey)) < 0)
        std::abort();
}

std::atomic<int> answers{0};
std::atomic<int> pictures{0};
std::atomic<int> wrong{0};

void ask(Tessen::DecodedImages& images, const std::string& folder, unsigned seed)
{
    std::mt19937 random(seed);
    for (int count = 0; count < requestCount; ++count) {
        const unsigned file = random() % fileCount;
        const bool isWanted = random() % 8 != 0;
        const auto take = [file, isWanted](const Tessen::Decoded& decoded) {
            ++answers;
            if (decoded.image) {
                ++pictures;
                wrong += qRed(decoded.image->pixels.pixel(side - 1, side - 1)) == int(10 + file) ? 0 : 1;
            } else if (isWanted) {
                ++wrong;
            }
        };
        const std::string path = folder + "/" + std::to_string(file) + ".dds";
        images.request(path, 0, 0, [isWanted] { return isWanted; }, take);
        if (random() % 50 == 0)
            images.drop(path);
        if (random() % 200 == 0)
            images.setCapacity((1 + random() % fileCount) * side * side * 4);
    }
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    for (int file = 0; file < fileCount; ++file)
        writePicture(folder.path() + QString("/%1.dds").arg(file), char(10 + file));
    Tessen::DecodedImages images(3 * side * side * 4);

    std::vector<std::thread> threads;
    for (unsigned seed = 1; seed <= threadCount; ++seed)
        threads.emplace_back(ask, std::ref(images), folder.path().toStdString(), seed);
    for (std::thread& thread : threads)
        thread.join();

    const auto counters = images.counters();
    std::printf("%d answers, %d pictures, %d wrong, %lld hits, %lld misses, %lld evictions\n", answers.load(),
                pictures.load(), wrong.load(), static_cast<long long>(counters.hits),
                static_cast<long long>(counters.misses), static_cast<long long>(counters.evictions));
    const bool isRight = answers == threadCount * requestCount && wrong == 0 && counters.evictions > 0
                         && counters.hits + counters.misses == threadCount * requestCount
                         && counters.bytes <= fileCount * side * side * 4;
    return isRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
