#include "sample_images.h"

#include <host/engine/atlas_texture.h>
#include <host/resources/multi_file_system.h>

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

#include <zlib.h>

using ImageInfo = TessenImageCache::ImageInfo;

Q_DECLARE_METATYPE(DdsFile)

namespace {

/// The facts in one line: sides, channels, levels, images, compression and format.
QString summaryOf(const std::optional<ImageInfo>& info)
{
    if (!info)
        return "none";
    return QString("%1x%2x%3 %4x%5=%6 m%7 i%8 %9 ")
               .arg(info->width).arg(info->height).arg(info->depth).arg(info->channelCount).arg(info->bytesPerChannel)
               .arg(info->bytesPerPixel).arg(info->mipCount).arg(info->imageCount).arg(info->compression)
           + info->format;
}

QByteArray bytesAt(QByteArray bytes, int offset, const QByteArray& put)
{
    return bytes.replace(offset, put.size(), put);
}

} // namespace

/// Facts of image files from their headers.
class tst_ImageFacts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pngFilesAreDescribed_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<QString>("facts");
        QTest::newRow("colours with alpha") << filled(8, 4, Qt::red) << "8x4x1 4x1=4 m1 i1 Deflate RGBA8";
        QTest::newRow("colours") << filled(3, 5, Qt::red, QImage::Format_RGB888) << "3x5x1 3x1=3 m1 i1 Deflate RGB8";
        QTest::newRow("16 bits") << filled(2, 2, Qt::red, QImage::Format_RGBA64) << "2x2x1 4x2=8 m1 i1 Deflate RGBA16";
        QTest::newRow("grey") << filled(2, 2, Qt::gray, QImage::Format_Grayscale8) << "2x2x1 1x1=1 m1 i1 Deflate Grey8";
        QTest::newRow("grey of 16 bits") << filled(2, 2, Qt::gray, QImage::Format_Grayscale16)
                                         << "2x2x1 1x2=2 m1 i1 Deflate Grey16";
        QImage palette(2, 2, QImage::Format_Indexed8);
        palette.setColorTable({qRgb(255, 0, 0), qRgb(0, 255, 0)});
        palette.fill(1);
        QTest::newRow("palette") << palette << "2x2x1 3x1=3 m1 i1 Deflate RGB8 of a palette";
        palette.setColorTable({qRgba(255, 0, 0, 9), qRgb(0, 255, 0)});
        QTest::newRow("palette with alpha") << palette << "2x2x1 4x1=4 m1 i1 Deflate RGBA8 of a palette";
    }
    void pngFilesAreDescribed()
    {
        QFETCH(QImage, picture);
        QFETCH(QString, facts);
        const DiskFolder disk;
        disk.write("a.png", pngOf(picture));

        QCOMPARE(summaryOf(infoOf(disk.path("a.png"))), facts);
    }

    void ddsFilesAreDescribed_data()
    {
        QTest::addColumn<DdsFile>("file");
        QTest::addColumn<QString>("facts");
        const auto blocks = [](quint32 number, int bytes) {
            DdsFile file;
            file.number = number;
            file.pixels = QByteArray(bytes, '\0');
            return file;
        };
        QTest::newRow("BC1") << blocks(71, 8) << "4x4x1 4x1=4 m1 i1 BC1 RGBA8";
        QTest::newRow("BC1 sRGB") << blocks(72, 8) << "4x4x1 4x1=4 m1 i1 BC1 RGBA8 sRGB";
        QTest::newRow("BC2") << blocks(74, 16) << "4x4x1 4x1=4 m1 i1 BC2 RGBA8";
        QTest::newRow("BC3") << blocks(77, 16) << "4x4x1 4x1=4 m1 i1 BC3 RGBA8";
        QTest::newRow("BC4") << blocks(80, 8) << "4x4x1 1x1=1 m1 i1 BC4 Grey8";
        QTest::newRow("BC5") << blocks(83, 16) << "4x4x1 2x1=2 m1 i1 BC5 RG8";
        QTest::newRow("BC6H") << blocks(95, 16) << "4x4x1 3x2=6 m1 i1 BC6H RGB16F";
        QTest::newRow("BC6H signed") << blocks(96, 16) << "4x4x1 3x2=6 m1 i1 BC6H RGB16F";
        QTest::newRow("BC7") << blocks(98, 16) << "4x4x1 4x1=4 m1 i1 BC7 RGBA8";
        QTest::newRow("BC7 sRGB") << blocks(99, 16) << "4x4x1 4x1=4 m1 i1 BC7 RGBA8 sRGB";
        QTest::newRow("whole bytes") << blocks(28, 64) << "4x4x1 4x1=4 m1 i1 None RGBA8";
        QTest::newRow("half floats") << blocks(10, 128) << "4x4x1 4x2=8 m1 i1 None RGBA16F";
        QTest::newRow("floats") << blocks(2, 256) << "4x4x1 4x4=16 m1 i1 None RGBA32F";
        DdsFile letters = blocks(0, 16);
        letters.letters = "DXT5";
        QTest::newRow("four letters") << letters << "4x4x1 4x1=4 m1 i1 BC3 RGBA8";
        DdsFile masks = blocks(0, 48);
        masks.bits = 24;
        std::copy_n(std::initializer_list<quint32>{0xff0000, 0xff00, 0xff}.begin(), 3, masks.masks);
        QTest::newRow("masks") << masks << "4x4x1 3x1=3 m1 i1 None RGB8";
        DdsFile mips = blocks(71, 4 * 8 + 8 + 8 + 8);
        mips.width = mips.height = 8;
        mips.mips = 4;
        QTest::newRow("mip levels") << mips << "8x8x1 4x1=4 m4 i1 BC1 RGBA8";
        DdsFile cube = blocks(71, 6 * 8);
        cube.isCubeMap = true;
        QTest::newRow("cube map") << cube << "4x4x1 4x1=4 m1 i6 BC1 RGBA8";
        DdsFile oldCube = blocks(0, 6 * 8);
        oldCube.letters = "DXT1";
        oldCube.isCubeMap = true;
        QTest::newRow("cube map with four letters") << oldCube << "4x4x1 4x1=4 m1 i6 BC1 RGBA8";
        DdsFile volume = blocks(28, 4 * 64);
        volume.depth = 4;
        QTest::newRow("volume") << volume << "4x4x4 4x1=4 m1 i1 None RGBA8";
        DdsFile array = blocks(71, 3 * 8);
        array.images = 3;
        QTest::newRow("array") << array << "4x4x1 4x1=4 m1 i3 BC1 RGBA8";
    }
    void ddsFilesAreDescribed()
    {
        QFETCH(DdsFile, file);
        QFETCH(QString, facts);
        const DiskFolder disk;
        disk.write("a.dds", file.bytes());

        const auto info = infoOf(disk.path("a.dds"));

        QCOMPARE(summaryOf(info), facts);
        QCOMPARE(info->isCubeMap, file.isCubeMap);
    }

    void otherFormatsAreDescribed_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("channels");
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("facts");
        const int bytes = OIIO::TypeDesc::UINT8;
        QTest::newRow("JPEG") << "a.jpg" << 3 << bytes << "6x4x1 3x1=3 m1 i1 JPEG RGB8";
        QTest::newRow("TGA") << "a.tga" << 4 << bytes << "6x4x1 4x1=4 m1 i1 None RGBA8";
        QTest::newRow("TGA in capitals") << "A.TGA" << 3 << bytes << "6x4x1 3x1=3 m1 i1 None RGB8";
        QTest::newRow("BMP") << "a.bmp" << 3 << bytes << "6x4x1 3x1=3 m1 i1 None RGB8";
        QTest::newRow("TIFF") << "a.tif" << 4 << int(OIIO::TypeDesc::UINT16) << "6x4x1 4x2=8 m1 i1 ZIP RGBA16";
        QTest::newRow("EXR") << "a.exr" << 4 << int(OIIO::TypeDesc::HALF) << "6x4x1 4x2=8 m1 i1 ZIP RGBA16F";
        QTest::newRow("HDR") << "a.hdr" << 3 << int(OIIO::TypeDesc::FLOAT) << "6x4x1 3x4=12 m1 i1 RLE RGB32F";
    }
    void otherFormatsAreDescribed()
    {
        QFETCH(QString, name);
        QFETCH(int, channels);
        QFETCH(int, type);
        QFETCH(QString, facts);
        const DiskFolder disk;
        writeImage(disk.path(name), 6, 4, OIIO::TypeDesc(OIIO::TypeDesc::BASETYPE(type)),
                   std::vector<float>(size_t(channels), 0.5f));

        QCOMPARE(summaryOf(infoOf(disk.path(name))), facts);
    }

    void theContentTellsTheFormatWhateverTheName()
    {
        const DiskFolder disk;
        disk.write("photo.jpg", pngOf(filled(8, 4, Qt::red)));

        QCOMPARE(summaryOf(infoOf(disk.path("photo.jpg"))), "8x4x1 4x1=4 m1 i1 Deflate RGBA8");
    }

    void theFileSizeIsInMegabytes()
    {
        const DiskFolder disk;
        DdsFile file;
        file.number = 28;
        file.width = file.height = 512;
        file.pixels = QByteArray(1024 * 1024, '\0');
        disk.write("a.dds", file.bytes());

        QCOMPARE(infoOf(disk.path("a.dds"))->fileSize, 1.0f + 148.0f / 1024 / 1024);
    }

    void theLodModeTellsHowManyLevelsThereAre_data()
    {
        QTest::addColumn<uint>("mips");
        QTest::addColumn<uint>("lodMode");
        QTest::newRow("full size alone") << 1u << 0u;
        QTest::newRow("down to one pixel") << 4u << 1u;
        QTest::newRow("some") << 2u << 2u;
    }
    void theLodModeTellsHowManyLevelsThereAre()
    {
        QFETCH(uint, mips);
        QFETCH(uint, lodMode);
        const DiskFolder disk;
        DdsFile file;
        file.number = 71;
        file.width = file.height = 8;
        file.mips = mips;
        file.pixels = QByteArray(56, '\0');
        disk.write("a.dds", file.bytes());

        QCOMPARE(infoOf(disk.path("a.dds"))->lodMode, lodMode);
    }

    void bytesBehindTheEndOfAPngFileDoNoHarm()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(8, 4, Qt::red)) + "appended by a tool");

        QCOMPARE(infoOf(disk.path("a.png"))->width, 8);
    }

    void aFileWithAnyNameIsFound()
    {
        const DiskFolder disk;
        const QString name = QString::fromUtf8("B\u00e4ume 100%/\u6a39#1?.png");
        disk.write(name, pngOf(filled(8, 4, Qt::red)));

        QCOMPARE(infoOf(disk.path(name))->width, 8);
    }

    void theNameOfAResourceIsFoundInTheFirstRootThatHasIt()
    {
        const DiskFolder disk;
        disk.write("mod/oak.png", pngOf(filled(2, 2, Qt::red)));
        disk.write("game/oak.png", pngOf(filled(4, 4, Qt::red)));
        disk.write("game/fir.png", pngOf(filled(8, 8, Qt::red)));
        Ozy::FS::fileSystem()->setRoots({disk.bytes("mod"), disk.bytes("game")});

        QCOMPARE(infoOf("oak.png")->width, 2);
        QCOMPARE(infoOf("fir.png")->width, 8);
        Ozy::FS::fileSystem()->setRoots({});
    }

    void atlasFilesAreDescribed_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("albedo") << "wood_AM.atlas";
        QTest::newRow("gloss, bump and metal") << "wood_GBMT.atlas";
        QTest::newRow("occlusion") << "wood_MAO.atlas";
    }
    void atlasFilesAreDescribed()
    {
        QFETCH(QString, name);
        const DiskFolder disk;
        Ozy::Fennel::AtlasTexture::AtlasData data;
        data.tiles = {{{0, 64, 0, 64}, "oak_AM.png"}};
        data.width = 256;
        data.height = 128;
        QVERIFY(Ozy::Fennel::AtlasTexture::makeAtlasFile(disk.bytes(name), data, nullptr));

        const auto info = infoOf(disk.path(name));

        QVERIFY(info && info->isAtlas);
        QCOMPARE(info->width, 256);
        QCOMPARE(info->height, 128);
        QCOMPARE(info->imageCount, 1);
    }

    void whatIsNoImageHasNoDescriptionAndOneMessage_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        const QByteArray png = pngOf(filled(64, 64, Qt::red));
        DdsFile file;
        file.number = 71;
        file.pixels = QByteArray(8, '\0');
        const QByteArray dds = file.bytes();
        QTest::newRow("empty") << QByteArray() << "it is empty";
        QTest::newRow("text") << QByteArray("some text") << "it is no image";
        QTest::newRow("PNG cut in the header") << png.left(20) << "its header is damaged";
        QTest::newRow("PNG cut in the pixels") << png.left(png.size() - 20) << "it is cut off";
        QTest::newRow("PNG without its last byte") << png.chopped(1) << "it is cut off";
        QTest::newRow("PNG with a wrong checksum") << bytesAt(png, 19, "A") << "its header is damaged";
        QTest::newRow("DDS cut in the header") << dds.left(100) << "its header is damaged";
        QTest::newRow("DDS cut in the second header") << dds.left(140) << "its header is damaged";
        QTest::newRow("DDS cut in the pixels") << dds.chopped(1) << "it is cut off";
        QTest::newRow("DDS without width") << bytesAt(dds, 16, QByteArray(4, '\0')) << "its header is damaged";
        QTest::newRow("DDS with too many levels") << bytesAt(dds, 28, "\x04") << "its header is damaged";
        QTest::newRow("DDS in an unknown format") << bytesAt(dds, 128, "\x7f") << "the format of its pixels is not supported";
        file.width = file.height = 65536;
        QTest::newRow("enormous DDS") << file.bytes() << "it is too large";
        QTest::newRow("atlas") << QByteArray("\x89" "ATL") << "it is no image";
    }
    void whatIsNoImageHasNoDescriptionAndOneMessage()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const DiskFolder disk;
        disk.write("a.png", bytes);
        LogCapture log(LogCapture::FailOnRest);

        const auto info = infoOf(disk.path("a.png"));

        QVERIFY(!info);
        QCOMPARE(log.messages(), QStringList{"5 Image '" + disk.path("a.png") + "' cannot be read: " + reason + "."});
    }

    void anEnormousPngIsRefused()
    {
        // Built with a right checksum, so that nothing but its size is wrong.
        const DiskFolder disk;
        QByteArray png = pngOf(filled(1, 1, Qt::red));
        png.replace(16, 8, QByteArray::fromHex("0001000000010000"));
        qToBigEndian<quint32>(crc32(0, reinterpret_cast<const Bytef*>(png.constData()) + 12, 17), png.data() + 29);
        disk.write("a.png", png);
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!infoOf(disk.path("a.png")));
        QCOMPARE(log.messages(), QStringList{"5 Image '" + disk.path("a.png") + "' cannot be read: it is too large."});
    }

    void aDirectoryIsNoImage()
    {
        const DiskFolder disk;
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!infoOf(disk.path()));
        QCOMPARE(log.messages(), QStringList{"5 Image '" + disk.path() + "' cannot be read: it is a directory."});
    }

    void aPipeIsNoImageAndHoldsNobodyUp()
    {
        const DiskFolder disk;
        QVERIFY(QProcess::execute("mkfifo", {disk.path("a.png")}) == 0);
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!infoOf(disk.path("a.png")));
        QCOMPARE(log.messages(), QStringList{"5 Image '" + disk.path("a.png") + "' cannot be read: it is no file."});
    }

    void aMissingFileIsToldAsProgressOnly()
    {
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!infoOf("/nowhere/a.png"));
        QCOMPARE(log.messages(), QStringList{"1 Image '/nowhere/a.png' cannot be read: No such file or directory."});
    }

    void anEmptyNameHasNoDescriptionAndNoMessage()
    {
        LogCapture log(LogCapture::FailOnRest);

        QVERIFY(!infoOf(QString()));
        QCOMPARE(log.messages(), QStringList());
    }
};

QTEST_MAIN(tst_ImageFacts)
#include "tst_image_facts.moc"
