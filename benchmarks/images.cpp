// Facts of image files against what else reads headers, and showing other channels of a picture that is kept against
// the least that this costs. Files of 512 by 512 pixels that were read before, so that no disk is waited for.
#include <support/comparison.h>

#include <host/images/image_facts.h>
#include <host/images/picture.h>
#include <host/images/tessen_image_provider.h>
#include <host/images/tessen_image_request_desc.h>

#include <OpenImageIO/imageio.h>
#include <QGuiApplication>
#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

using namespace bench;

namespace {

constexpr int side = 512;
constexpr int reads = 200;

struct Disk
{
    Disk()
    {
        QImage noise(side, side, QImage::Format_ARGB32);
        QImage smooth(side, side, QImage::Format_ARGB32);
        unsigned seed = 1;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                seed = seed * 1664525u + 1013904223u;
                noise.setPixel(x, y, seed | 0xff000000);
                smooth.setPixel(x, y, qRgb(x / 2, y / 2, (x + y) / 4));
            }
        }
        noise.save(path("noise.png"));
        smooth.save(path("smooth.png"));
        writeDds(path("blocks.dds"), 98, side * side);
        writeDds(path("bytes.dds"), 28, 4 * side * side);
        writeDds(path("old.dds"), 0, side * side / 2);
    }
    QString path(const QString& name) const { return directory.path() + '/' + name; }

private:
    static void writeDds(const QString& path, quint32 number, int pixelBytes)
    {
        QByteArray bytes(number ? 148 : 128, '\0');
        const auto put = [&bytes](int offset, quint32 value) { qToLittleEndian(value, bytes.data() + offset); };
        put(0, 0x20534444);
        put(4, 124);
        put(8, 0x1007);
        put(12, side);
        put(16, side);
        put(76, 32);
        put(80, 4);
        put(84, number ? 0x30315844 : 0x31545844); // DX10, DXT1
        put(108, 0x1000);
        if (number) {
            put(128, number);
            put(132, 3);
            put(140, 1);
        }
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        file.write(bytes + QByteArray(pixelBytes, '\7'));
    }

    QTemporaryDir directory;
};

template <class Function>
Comparison::Timed repeated(Function function)
{
    return [function] {
        for (int count = 0; count < reads; ++count)
            keep(function());
    };
}

Comparison::Timed openings(const std::string& path)
{
    return repeated([path] {
        const auto input = OIIO::ImageInput::open(path);
        return input ? input->spec().width : 0;
    });
}

Comparison::Timed facts(const std::string& path)
{
    return repeated([path] { return Tessen::readImageFacts(path).info->width; });
}

/// The least that a header costs.
Comparison::Timed bareReads(const std::string& path)
{
    return repeated([path] {
        unsigned char start[32] = {};
        const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const ssize_t length = read(file, start, sizeof start);
        close(file);
        return length;
    });
}

/// As models ask: a job each, answered on a worker.
Comparison::Timed queries(const QString& path)
{
    return [path] {
        std::vector<Ozy::AsyncManager::Job> jobs;
        for (int count = 0; count < reads; ++count)
            jobs.push_back(TessenImageProvider::imageCache().getImageInfo(
                path, [](const auto&, const TessenImageCache::ImageInfo* info) { return info->width == side; }));
        for (const auto& job : jobs)
            job.wait();
    };
}

void compareFacts(const Disk& disk)
{
    for (const QString name : {"noise.png", "smooth.png"}) {
        const QString path = disk.path(name);
        Comparison("facts of " + name.toStdString() + ", to an open of OpenImageIO")
            .addPlain("OpenImageIO, open", openings(path.toStdString()))
            .addPlain("open, read 32 bytes, close", bareReads(path.toStdString()))
            .addPlain("readImageFacts", facts(path.toStdString()))
            .addPlain("getImageInfo, with its job", queries(path));
        Comparison("facts of " + name.toStdString() + ", to QImageReader")
            .addPlain("QImageReader::size", repeated([path] { return QImageReader(path).size().width(); }))
            .addPlain("open, read 32 bytes, close", bareReads(path.toStdString()))
            .addPlain("readImageFacts", facts(path.toStdString()));
    }
    for (const QString name : {"blocks.dds", "old.dds"}) {
        const QString path = disk.path(name);
        Comparison("facts of " + name.toStdString() + ", to an open of OpenImageIO")
            .addPlain("OpenImageIO, open", openings(path.toStdString()))
            .addPlain("open, read 32 bytes, close", bareReads(path.toStdString()))
            .addPlain("readImageFacts", facts(path.toStdString()))
            .addPlain("getImageInfo, with its job", queries(path));
    }
}

/// What any mask costs at least: a copy of all pixels, and one pass over them.
QImage copiedAndMasked(const QImage& pixels, QRgb colours)
{
    QImage copy(pixels.size(), QImage::Format_RGB32);
    std::memcpy(copy.bits(), pixels.constBits(), static_cast<std::size_t>(pixels.sizeInBytes()));
    auto* const begin = reinterpret_cast<QRgb*>(copy.bits());
    for (QRgb *pixel = begin, *end = begin + copy.width() * copy.height(); pixel != end; ++pixel)
        *pixel = (*pixel & colours) | 0xff000000;
    return copy;
}

void compareMasks()
{
    const auto image = std::make_shared<Tessen::DecodedImage>();
    image->width = image->height = 2048;
    image->pixels = QImage(2048, 2048, QImage::Format_ARGB32);
    image->pixels.fill(QColor(200, 100, 50, 20));
    TessenImageRequestDesc desc;
    desc.setChannelVisible(TessenImageRequestDesc::Green, false);

    Comparison("other channels of a picture of 2048 by 2048 that is kept")
        .addPlain("memcpy and a loop over the pixels", [image] { keep(copiedAndMasked(image->pixels, 0xff00ff).width()); })
        .addPlain("pictureOf", [image, desc] { keep(Tessen::pictureOf(*image, desc).width()); });
}

void compareDecoding(const Disk& disk)
{
    const std::string path = disk.path("noise.png").toStdString();
    Comparison("a picture of 512 by 512")
        .addPlain("QImage, decoded", [path] { keep(QImage(QString::fromStdString(path)).width()); })
        .addPlain("decodeImage", [path] { keep(Tessen::decodeImage(path, 0, 0, [] { return true; }).image->width); });
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const Disk disk;

    compareFacts(disk);
    compareMasks();
    compareDecoding(disk);
    return runAll(argc, argv);
}
