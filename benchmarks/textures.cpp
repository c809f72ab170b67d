// The check of a texture: its size, and whether the file is whole.
#include "support/comparison.h"

#include <host/engine/res_il_image.h>

#include <QImage>
#include <QTemporaryDir>

#include <stdexcept>

namespace {

/// A picture of 512 by 512 pixels that a PNG file cannot make smaller, or one that it can.
QImage picture(bool isNoise)
{
    QImage image(512, 512, QImage::Format_RGBA8888);
    unsigned random = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            random = random * 1664525U + 1013904223U;
            image.setPixelColor(x, y, isNoise ? QColor::fromRgba(random) : QColor(x / 2, y / 2, (x + y) / 4));
        }
    }
    return image;
}

void compare(const std::string& kind, const QString& path)
{
    bench::Comparison("check a PNG file of 512 by 512 pixels, " + kind)
        .addPlain("QImage decodes it", [path] { bench::keep(QImage(path).width()); })
        .addPlain("ResILImage", [path] {
            Ozy::ResILImage image;
            unsigned width = 0;
            unsigned height = 0;
            if (!image.loadImage(path.toStdWString()))
                throw std::runtime_error("no image");
            image.getDimensions(width, height);
            bench::keep(width + height);
        });
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir folder;
    picture(true).save(folder.filePath("noise.png"));
    picture(false).save(folder.filePath("smooth.png"));
    compare("noise", folder.filePath("noise.png"));
    compare("smooth", folder.filePath("smooth.png"));
    return bench::runAll(argc, argv);
}
