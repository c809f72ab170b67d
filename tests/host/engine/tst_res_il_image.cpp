#include <host/engine/render_system.h>

#include <support/disk_folder.h>

#include <QBuffer>
#include <QImage>
#include <QtTest>

#include <QtEndian>

namespace {

QByteArray imageBytes(const char* format, QSize size = {40, 24})
{
    QImage image(size, QImage::Format_RGBA8888);
    unsigned random = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            random = random * 1664525U + 1013904223U;
            image.setPixelColor(x, y, QColor::fromRgb(random >> 8));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// An uncompressed TGA file, which Qt does not write.
QByteArray tgaBytes(int width, int height)
{
    QByteArray bytes(18, 0);
    bytes[2] = 2;
    qToLittleEndian<quint16>(quint16(width), bytes.data() + 12);
    qToLittleEndian<quint16>(quint16(height), bytes.data() + 14);
    bytes[16] = 24;
    return bytes + QByteArray(width * height * 3, 'x');
}

/// An uncompressed DDS file of four channels.
QByteArray ddsBytes(quint32 width, quint32 height)
{
    QByteArray bytes(128, 0);
    const auto set = [&bytes](int word, quint32 value) { qToLittleEndian(value, bytes.data() + 4 * word); };
    set(0, 0x20534444);
    set(1, 124);
    set(2, 0x100f);
    set(3, height);
    set(4, width);
    set(5, width * 4);
    set(19, 32);
    set(20, 0x41);
    set(22, 32);
    set(23, 0xff0000);
    set(24, 0xff00);
    set(25, 0xff);
    set(26, 0xff000000);
    set(27, 0x1000);
    return bytes + QByteArray(40 * 24 * 4, 'x');
}

/// "40x24", or "refused".
QString loaded(const QString& path)
{
    const auto image = Ozy::Fennel::rs().resIL()->createImage();
    const bool isLoaded = image->loadImage(path.toStdWString());
    unsigned width = 1;
    unsigned height = 1;
    image->getDimensions(width, height);
    return isLoaded ? QString("%1x%2").arg(width).arg(height) : width || height ? "refused, but with a size" : "refused";
}

QString loaded(const QByteArray& bytes)
{
    const DiskFolder disk;
    disk.write("image", bytes);
    return loaded(disk.path("image"));
}

QStringList acceptedPrefixes(const QByteArray& whole)
{
    QStringList accepted;
    for (int length = 0; length < whole.size(); ++length) {
        if (loaded(whole.left(length)) != "refused")
            accepted << QString::number(length);
    }
    return accepted;
}

QStringList acceptedChanges(const QByteArray& whole)
{
    QStringList accepted;
    for (int place = 0; place < whole.size(); ++place) {
        QByteArray bytes = whole;
        bytes[place] = char(bytes[place] ^ 0x10);
        if (loaded(bytes) != "refused")
            accepted << QString::number(place);
    }
    return accepted;
}

} // namespace

class tst_ResILImage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theSizeOfAnImageIsTold_data()
    {
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("PNG") << imageBytes("PNG");
        QTest::newRow("JPEG") << imageBytes("JPG");
        QTest::newRow("BMP") << imageBytes("BMP");
        QTest::newRow("TGA") << tgaBytes(40, 24);
        QTest::newRow("DDS") << ddsBytes(40, 24);
    }
    void theSizeOfAnImageIsTold()
    {
        QFETCH(QByteArray, bytes);

        QCOMPARE(loaded(bytes), QString("40x24"));
    }

    void whatIsNoImageIsRefused_data()
    {
        QTest::addColumn<QByteArray>("bytes");

        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("oak, elm and fir");
        QTest::newRow("the start of a PNG") << imageBytes("PNG").left(8);
        QTest::newRow("half a TGA") << tgaBytes(40, 24).left(1000);
        QTest::newRow("half a DDS") << ddsBytes(40, 24).left(1000);
        QTest::newRow("half a BMP") << imageBytes("BMP").left(1000);
        QTest::newRow("a DDS of no size") << ddsBytes(0, 0);
        QTest::newRow("an enormous DDS") << ddsBytes(65536, 65536);
        QTest::newRow("an enormous TGA") << tgaBytes(40, 24).replace(12, 4, "\xff\xff\xff\xff");
    }
    void whatIsNoImageIsRefused()
    {
        QFETCH(QByteArray, bytes);

        QCOMPARE(loaded(bytes), QString("refused"));
    }

    void everyPrefixOfAPngIsRefused()
    {
        QCOMPARE(acceptedPrefixes(imageBytes("PNG", {6, 4})), QStringList());
    }

    void everyChangeOfOneByteOfAPngIsRefused()
    {
        QCOMPARE(acceptedChanges(imageBytes("PNG", {6, 4})), QStringList());
    }

    void whatStandsBehindTheEndOfAPngIsNotLookedAt()
    {
        QCOMPARE(loaded(imageBytes("PNG") + "notes of a camera"), QString("40x24"));
    }

    void aDirectoryIsNoImage()
    {
        const DiskFolder disk;

        QCOMPARE(loaded(disk.path()), QString("refused"));
    }

    void aMissingFileIsNoImage()
    {
        QCOMPARE(loaded(QString("/nowhere/oak.png")), QString("refused"));
    }

    void aNameBeyondAsciiIsFound()
    {
        const DiskFolder disk;
        const QString name = QString::fromUtf8("\xC3\xA9rable \xE6\x9C\xA8 \xF0\x9F\x8C\xB2.");
        disk.write(name + "png", imageBytes("PNG"));
        disk.write(name + "bmp", imageBytes("BMP"));

        QCOMPARE(loaded(disk.path(name + "png")), QString("40x24"));
        QCOMPARE(loaded(disk.path(name + "bmp")), QString("40x24"));
    }

    void aSecondImageReplacesTheFirst()
    {
        const DiskFolder disk;
        disk.write("oak.png", imageBytes("PNG"));
        Ozy::ResILImage image;
        image.loadImage(disk.path("oak.png").toStdWString());

        const bool isLoaded = image.loadImage(disk.path("elm.png").toStdWString());
        unsigned width = 1;
        unsigned height = 1;
        image.getDimensions(width, height);

        QVERIFY(!isLoaded);
        QCOMPARE(width + height, 0U);
    }
};

QTEST_GUILESS_MAIN(tst_ResILImage)
#include "tst_res_il_image.moc"
