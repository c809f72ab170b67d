#include "sample_images.h"

#include <support/disk_folder.h>

#include <QtTest>

using Desc = TessenImageRequestDesc;

Q_DECLARE_METATYPE(DdsFile)

namespace {

DdsFile ddsOf(quint32 number, const QByteArray& hex)
{
    DdsFile file;
    file.number = number;
    file.pixels = QByteArray::fromHex(hex);
    return file;
}

Desc channelsOf(const QString& fileName, const QString& channels)
{
    Desc desc = descOf(fileName);
    desc.setChannelVisible(Desc::Red, channels.contains('r'));
    desc.setChannelVisible(Desc::Green, channels.contains('g'));
    desc.setChannelVisible(Desc::Blue, channels.contains('b'));
    desc.setChannelVisible(Desc::Alpha, channels.contains('a'));
    return desc;
}

} // namespace

/// What views get to see of image files.
class tst_ImagePictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pngPixelsAreShown_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<QColor>("colour");
        const QColor colour(200, 100, 50);
        QTest::newRow("colours with alpha") << filled(8, 4, colour) << colour;
        QTest::newRow("colours") << filled(8, 4, colour, QImage::Format_RGB888) << colour;
        QTest::newRow("16 bits") << filled(8, 4, colour, QImage::Format_RGBA64) << colour;
        QTest::newRow("grey") << filled(8, 4, QColor(77, 77, 77), QImage::Format_Grayscale8) << QColor(77, 77, 77);
        QTest::newRow("grey of 16 bits") << filled(8, 4, QColor(77, 77, 77), QImage::Format_Grayscale16) << QColor(77, 77, 77);
        QImage palette(8, 4, QImage::Format_Indexed8);
        palette.setColorTable({qRgb(1, 2, 3), colour.rgb()});
        palette.fill(1);
        QTest::newRow("palette") << palette << colour;
        QTest::newRow("transparent") << filled(8, 4, QColor(200, 100, 50, 0)) << colour;
    }
    void pngPixelsAreShown()
    {
        QFETCH(QImage, picture);
        QFETCH(QColor, colour);
        const DiskFolder disk;
        disk.write("a.png", pngOf(picture));

        const Shown shows = shown(descOf(disk.path("a.png")));

        QCOMPARE(shows.error, QString());
        QCOMPARE(shows.picture.size(), QSize(8, 4));
        QCOMPARE(shows.at(7, 3), colour);
    }

    void otherFormatsAreShown_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("compression");
        QTest::newRow("TGA") << "a.tga" << QByteArray();
        QTest::newRow("TGA, packed") << "a.tga" << QByteArray("rle");
        QTest::newRow("BMP") << "a.bmp" << QByteArray();
        QTest::newRow("TIFF") << "a.tif" << QByteArray("lzw");
        QTest::newRow("PNG") << "a.png" << QByteArray();
    }
    void otherFormatsAreShown()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, compression);
        const DiskFolder disk;
        writeImage(disk.path(name), 6, 4, OIIO::TypeDesc::UINT8, std::vector<unsigned char>{200, 100, 50}, compression.toStdString());

        const Shown shows = shown(descOf(disk.path(name)));

        QCOMPARE(shows.error, QString());
        QCOMPARE(shows.picture.size(), QSize(6, 4));
        QCOMPARE(shows.at(5, 3), QColor(200, 100, 50));
    }

    void jpegIsShownAsNearAsItIsStored()
    {
        const DiskFolder disk;
        writeImage(disk.path("a.jpg"), 8, 8, OIIO::TypeDesc::UINT8, std::vector<unsigned char>{200, 100, 50});

        const QColor colour = shown(descOf(disk.path("a.jpg"))).at(4, 4);

        QVERIFY(qAbs(colour.red() - 200) <= 3 && qAbs(colour.green() - 100) <= 3 && qAbs(colour.blue() - 50) <= 3);
    }

    // Blocks of one colour, each written by hand.
    void ddsBlocksAreShown_data()
    {
        QTest::addColumn<DdsFile>("file");
        QTest::addColumn<QString>("channels");
        QTest::addColumn<QColor>("colour");
        // Both end points are pure red in 5, 6 and 5 bits.
        QTest::newRow("BC1") << ddsOf(71, "00f800f8 00000000") << "rgb" << QColor(255, 0, 0);
        QTest::newRow("BC1 sRGB") << ddsOf(72, "00f800f8 00000000") << "rgb" << QColor(255, 0, 0);
        // The fourth colour of equal end points is transparent black.
        QTest::newRow("BC1, transparent") << ddsOf(71, "00f800f8 ffffffff") << "a" << QColor(0, 0, 0);
        // Four bits of alpha a pixel, all 8 of 15.
        QTest::newRow("BC2, alpha") << ddsOf(74, "8888888888888888 e007e007 00000000") << "a" << QColor(136, 136, 136);
        QTest::newRow("BC2") << ddsOf(75, "8888888888888888 e007e007 00000000") << "rgb" << QColor(0, 255, 0);
        QTest::newRow("BC3, alpha") << ddsOf(77, "4040000000000000 1f001f00 00000000") << "a" << QColor(64, 64, 64);
        QTest::newRow("BC3") << ddsOf(78, "4040000000000000 1f001f00 00000000") << "rgb" << QColor(0, 0, 255);
        QTest::newRow("BC4") << ddsOf(80, "5050000000000000") << "rgb" << QColor(80, 80, 80);
        QTest::newRow("BC5") << ddsOf(83, "5050000000000000 9090000000000000") << "rgb" << QColor(80, 144, 0);
        // Mode 5: end points of 7 bits, alpha of 8, all indexes 0; red 127, green 0, blue 64, alpha 255.
        QTest::newRow("BC7") << ddsOf(98, "20ff3f000004feff0300000000000000") << "rgb" << QColor(255, 0, 129);
        QTest::newRow("BC7 sRGB") << ddsOf(99, "20ff3f000004feff0300000000000000") << "rgb" << QColor(255, 0, 129);
        QTest::newRow("red last") << ddsOf(87, QByteArray("3264c8ff").repeated(16)) << "rgb" << QColor(200, 100, 50);
        QTest::newRow("red first") << ddsOf(28, QByteArray("c86432ff").repeated(16)) << "rgb" << QColor(200, 100, 50);
        QTest::newRow("16 bits") << ddsOf(11, QByteArray("ffff008000000080").repeated(16)) << "rgb" << QColor(255, 128, 0);
        QTest::newRow("5, 6 and 5 bits") << ddsOf(85, QByteArray("e0ff").repeated(16)) << "rgb" << QColor(255, 255, 0);
        QTest::newRow("one channel") << ddsOf(61, QByteArray("4d").repeated(16)) << "rgb" << QColor(77, 77, 77);
        DdsFile letters = ddsOf(0, "4040000000000000 1f001f00 00000000");
        letters.letters = "DXT5";
        QTest::newRow("four letters") << letters << "rgb" << QColor(0, 0, 255);
        DdsFile masks = ddsOf(0, QByteArray("3264c8").repeated(16));
        masks.bits = 24;
        std::copy_n(std::initializer_list<quint32>{0xff0000, 0xff00, 0xff}.begin(), 3, masks.masks);
        QTest::newRow("masks") << masks << "rgb" << QColor(200, 100, 50);
    }
    void ddsBlocksAreShown()
    {
        QFETCH(DdsFile, file);
        QFETCH(QString, channels);
        QFETCH(QColor, colour);
        const DiskFolder disk;
        disk.write("a.dds", file.bytes());

        const Shown shows = shown(channelsOf(disk.path("a.dds"), channels));

        QCOMPARE(shows.error, QString());
        QCOMPARE(shows.picture.size(), QSize(4, 4));
        QCOMPARE(shows.at(3, 3), colour);
    }

    void sidesThatAreNoMultipleOfABlockAreShown()
    {
        const DiskFolder disk;
        DdsFile file = ddsOf(71, QByteArray("00f800f800000000").repeated(2 * 3));
        file.width = 5;
        file.height = 9;
        disk.write("a.dds", file.bytes());

        const Shown shows = shown(descOf(disk.path("a.dds")));

        QCOMPARE(shows.picture.size(), QSize(5, 9));
        QCOMPARE(shows.at(4, 8), QColor(255, 0, 0));
    }

    void theSidesOfACubeMapAreShown_data()
    {
        QTest::addColumn<int>("side");
        QTest::addColumn<int>("grey");
        QTest::newRow("+X") << 0 << 0x10;
        QTest::newRow("-X") << 1 << 0x20;
        QTest::newRow("+Y") << 2 << 0x30;
        QTest::newRow("-Y") << 3 << 0x40;
        QTest::newRow("+Z") << 4 << 0x50;
        QTest::newRow("-Z") << 5 << 0x60;
    }
    void theSidesOfACubeMapAreShown()
    {
        QFETCH(int, side);
        QFETCH(int, grey);
        const DiskFolder disk;
        DdsFile file = ddsOf(80, "1010000000000000 2020000000000000 3030000000000000"
                                 "4040000000000000 5050000000000000 6060000000000000");
        file.isCubeMap = true;
        disk.write("sky.dds", file.bytes());

        const Shown shows = shown(descOf(disk.path("sky.dds"), side));

        QCOMPARE(shows.picture.size(), QSize(4, 4));
        QCOMPARE(shows.at(0, 0), QColor(grey, grey, grey));
    }

    void theMipLevelsOfASideAreShown()
    {
        const DiskFolder disk;
        DdsFile file = ddsOf(61, QByteArray("0a").repeated(16) + QByteArray("0b").repeated(4) + "0c");
        file.mips = 3;
        file.isCubeMap = true;
        file.pixels = file.pixels.repeated(5) + QByteArray(16, '\x1a') + QByteArray(4, '\x1b') + QByteArray(1, '\x1c');
        disk.write("sky.dds", file.bytes());

        const Shown shows = shown(descOf(disk.path("sky.dds"), 5, 1));

        QCOMPARE(shows.picture.size(), QSize(2, 2));
        QCOMPARE(shows.at(1, 1), QColor(0x1b, 0x1b, 0x1b));
    }

    void channelsAreMasked_data()
    {
        QTest::addColumn<QString>("channels");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("colours, opaque") << "rgb" << QColor(200, 100, 50);
        QTest::newRow("red alone stays red") << "r" << QColor(200, 0, 0);
        QTest::newRow("green alone") << "g" << QColor(0, 100, 0);
        QTest::newRow("blue alone") << "b" << QColor(0, 0, 50);
        QTest::newRow("two colours") << "gb" << QColor(0, 100, 50);
        QTest::newRow("alpha alone is grey") << "a" << QColor(51, 51, 51);
        QTest::newRow("none is black") << "" << QColor(0, 0, 0);
    }
    void channelsAreMasked()
    {
        QFETCH(QString, channels);
        QFETCH(QColor, colour);
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2, 2, QColor(200, 100, 50, 51))));

        QCOMPARE(shown(channelsOf(disk.path("a.png"), channels)).at(1, 1), colour);
    }

    void coloursWithAlphaAreTransparent()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2, 2, QColor(255, 255, 255, 51))));

        QCOMPARE(shown(channelsOf(disk.path("a.png"), "rgba")).at(1, 1).alpha(), 51);
        QCOMPARE(shown(channelsOf(disk.path("a.png"), "ra")).at(1, 1), QColor(255, 0, 0, 51));
    }

    void alphaOfAPictureWithoutItIsWhite()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2, 2, Qt::red, QImage::Format_RGB888)));

        QCOMPARE(shown(channelsOf(disk.path("a.png"), "a")).at(1, 1), QColor(Qt::white));
    }

    void lightIsExposedForTheScreen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<float>("light");
        QTest::addColumn<float>("stops");
        QTest::addColumn<int>("shown");
        QTest::newRow("EXR") << "a.exr" << 0.25f << 0.0f << 137;
        QTest::newRow("a stop brighter") << "a.exr" << 0.25f << 1.0f << 188;
        QTest::newRow("a stop darker") << "a.exr" << 0.5f << -1.0f << 137;
        QTest::newRow("brighter than the screen") << "a.exr" << 1000.0f << 0.0f << 255;
        QTest::newRow("below darkness") << "a.exr" << -1.0f << 0.0f << 0;
        QTest::newRow("no number") << "a.exr" << std::numeric_limits<float>::quiet_NaN() << 0.0f << 0;
        QTest::newRow("HDR") << "a.hdr" << 0.25f << 0.0f << 137;
        QTest::newRow("TIFF") << "a.tif" << 0.25f << 0.0f << 137;
    }
    void lightIsExposedForTheScreen()
    {
        QFETCH(QString, name);
        QFETCH(float, light);
        QFETCH(float, stops);
        QFETCH(int, shown);
        const DiskFolder disk;
        writeImage(disk.path(name), 3, 2, OIIO::TypeDesc::FLOAT, std::vector<float>{light, light, light});
        Desc desc = descOf(disk.path(name));
        desc.setExposure(stops);

        QCOMPARE(::shown(desc).at(2, 1), QColor(shown, shown, shown));
    }

    void lightInDdsFilesIsExposed_data()
    {
        QTest::addColumn<DdsFile>("file");
        // Red 0.25, green 1, blue 0, alpha 1.
        QTest::newRow("half floats") << ddsOf(10, QByteArray("0034003c0000003c").repeated(16));
        // One pair of end points of 10 bits; green is beyond what the screen shows.
        QTest::newRow("BC6H") << ddsOf(95, "a3b5ff0168ed7f000000000000000000");
        QTest::newRow("floats") << ddsOf(2, QByteArray("0000803e0000803f000000000000803f").repeated(16));
    }
    void lightInDdsFilesIsExposed()
    {
        QFETCH(DdsFile, file);
        const DiskFolder disk;
        disk.write("a.dds", file.bytes());

        QCOMPARE(shown(descOf(disk.path("a.dds"))).at(3, 3), QColor(137, 255, 0));
    }

    void exposureLeavesOrdinaryPicturesAlone()
    {
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(2, 2, QColor(200, 100, 50))));
        Desc desc = descOf(disk.path("a.png"));
        desc.setExposure(5);

        QCOMPARE(shown(desc).at(1, 1), QColor(200, 100, 50));
    }

    void theWishedSizeIsFittedInto_data()
    {
        QTest::addColumn<QSize>("wished");
        QTest::addColumn<QSize>("size");
        QTest::newRow("none") << QSize() << QSize(64, 32);
        QTest::newRow("half") << QSize(32, 16) << QSize(32, 16);
        QTest::newRow("a square") << QSize(16, 16) << QSize(16, 8);
        QTest::newRow("width alone") << QSize(16, 0) << QSize(16, 8);
        QTest::newRow("height alone") << QSize(0, 8) << QSize(16, 8);
        QTest::newRow("larger") << QSize(640, 640) << QSize(64, 32);
        QTest::newRow("tiny") << QSize(1, 1) << QSize(1, 1);
    }
    void theWishedSizeIsFittedInto()
    {
        QFETCH(QSize, wished);
        QFETCH(QSize, size);
        const DiskFolder disk;
        disk.write("a.png", pngOf(filled(64, 32, QColor(200, 100, 50))));

        const Shown shows = shown(descOf(disk.path("a.png")), wished);

        QCOMPARE(shows.picture.size(), size);
        QCOMPARE(shows.at(0, 0), QColor(200, 100, 50));
    }

    void aSmallPictureIsTakenFromTheMipLevelThatSuffices()
    {
        const DiskFolder disk;
        DdsFile file = ddsOf(61, {});
        file.width = file.height = 8;
        file.mips = 4;
        file.pixels = QByteArray(64, '\x0a') + QByteArray(16, '\x0b') + QByteArray(4, '\x0c') + QByteArray(1, '\x0d');
        disk.write("a.dds", file.bytes());

        const Shown shows = shown(descOf(disk.path("a.dds")), {3, 3});

        QCOMPARE(shows.picture.size(), QSize(3, 3));
        QCOMPARE(shows.at(1, 1), QColor(0x0b, 0x0b, 0x0b));
    }

    void whatIsNotThereGivesAnError_data()
    {
        QTest::addColumn<int>("image");
        QTest::addColumn<int>("mip");
        QTest::newRow("image") << 1 << 0;
        QTest::newRow("negative image") << -1 << 0;
        QTest::newRow("mip level") << 0 << 1;
        QTest::newRow("negative level") << 0 << -1;
    }
    void whatIsNotThereGivesAnError()
    {
        QFETCH(int, image);
        QFETCH(int, mip);
        const DiskFolder disk;
        disk.write("a.dds", ddsOf(61, QByteArray("0a").repeated(16)).bytes());
        disk.write("a.png", pngOf(filled(4, 4, Qt::red)));

        QCOMPARE(shown(descOf(disk.path("a.dds"), image, mip)).error,
                 "Image '" + disk.path("a.dds") + "' cannot be shown: it has no such image.");
        QCOMPARE(shown(descOf(disk.path("a.png"), image, mip)).error,
                 "Image '" + disk.path("a.png") + "' cannot be shown: it has no such image.");
    }

    void aDamagedFileGivesAnError()
    {
        const DiskFolder disk;
        QByteArray png = pngOf(filled(64, 64, Qt::red));
        png[60] = char(~png[60]);
        disk.write("a.png", png);

        const Shown shows = shown(descOf(disk.path("a.png")));

        QVERIFY(shows.picture.isNull());
        QVERIFY(shows.error.startsWith("Image '" + disk.path("a.png") + "' cannot be shown: "));
    }

    void aMissingFileGivesAnError()
    {
        QCOMPARE(shown(descOf("/nowhere/a.png")).error,
                 QString("Image '/nowhere/a.png' cannot be shown: No such file or directory."));
    }

    void aUrlThatDescribesNothingGivesAnError()
    {
        TessenImageProvider provider;
        const std::unique_ptr<QQuickImageResponse> response(provider.requestImageResponse("oak.png", {}));
        QSignalSpy finished(response.get(), &QQuickImageResponse::finished);

        QVERIFY(finished.wait());
        QCOMPARE(response->errorString(), QString("The URL describes no picture."));
    }
};

QTEST_MAIN(tst_ImagePictures)
#include "tst_image_pictures.moc"
