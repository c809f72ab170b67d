#include "sample_images.h"

#include <support/disk_folder.h>
#include <support/log_capture.h>

#include <QtTest>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

/// How the service takes one file after the other.
class Trial
{
public:
    explicit Trial(const QString& name) : m_name(name) {}

    void take(const QByteArray& bytes)
    {
        m_disk.write(m_name, bytes);
        const auto info = infoOf(m_disk.path(m_name));
        const Shown shows = shown(descOf(m_disk.path(m_name)));
        ++taken;
        described += info ? 1 : 0;
        shownFully += shows.picture.isNull() ? 0 : 1;
        // Either a picture or an error, and with a description its size.
        const bool isConsistent = shows.picture.isNull() != shows.error.isEmpty()
                                  && (!info || shows.picture.isNull() || shows.picture.width() == info->width);
        inconsistent += isConsistent ? 0 : 1;
    }
    void takePrefixes(const QByteArray& bytes, int step)
    {
        for (int length = 0; length < bytes.size(); length += step)
            take(bytes.left(length));
    }
    void takeChanges(const QByteArray& bytes)
    {
        for (int at = 0; at < std::min(bytes.size(), mostChanged); ++at) {
            for (const char change : {'\x01', '\x80'}) {
                QByteArray changed = bytes;
                changed[at] = static_cast<char>(changed[at] ^ change);
                take(changed);
            }
        }
    }

    static constexpr int mostChanged = 180; ///< the headers and a bit of the pixels

    int taken = 0;
    int described = 0;
    int shownFully = 0;
    int inconsistent = 0;

private:
    DiskFolder m_disk{DiskFolder::Large};
    QString m_name;
};

QByteArray smallPng()
{
    return pngOf(filled(5, 3, QColor(200, 100, 50, 20)));
}

QByteArray smallDds(quint32 number, int blockBytes)
{
    DdsFile file;
    file.number = number;
    file.width = file.height = 8;
    file.mips = 4;
    file.pixels = QByteArray(7 * blockBytes, '\x55');
    return file.bytes();
}

QByteArray bytesOf(const QString& name)
{
    const DiskFolder disk;
    writeImage(disk.path(name), 16, 16, OIIO::TypeDesc::UINT8, std::vector<float>{0.1f, 0.5f, 0.9f});
    QFile file(disk.path(name));
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

} // namespace

/// Damaged files end in errors and nothing else; the address sanitizer tells what else there might be.
class tst_ImageFaults : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noPrefixOfAFileIsDescribedOrShown_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("PNG") << "a.png" << smallPng();
        QTest::newRow("DDS of bytes") << "a.dds" << smallDds(28, 4).left(148) + QByteArray((64 + 16 + 4 + 1) * 4, '\x55');
        QTest::newRow("BC1") << "a.dds" << smallDds(71, 8);
        QTest::newRow("BC6H") << "a.dds" << smallDds(95, 16);
        QTest::newRow("BC7") << "a.dds" << smallDds(98, 16);
    }
    void noPrefixOfAFileIsDescribedOrShown()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const LogCapture log;
        Trial trial(name);

        trial.takePrefixes(bytes, 1);

        QCOMPARE(trial.taken, bytes.size());
        QCOMPARE(trial.described, 0);
        QCOMPARE(trial.shownFully, 0);
    }

    void theWholeFilesAreDescribedAndShown_data() { noPrefixOfAFileIsDescribedOrShown_data(); }
    void theWholeFilesAreDescribedAndShown()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        Trial trial(name);

        trial.take(bytes);

        QCOMPARE(trial.described, 1);
        QCOMPARE(trial.shownFully, 1);
    }

    void aChangedByteDoesNoHarm_data() { noPrefixOfAFileIsDescribedOrShown_data(); }
    void aChangedByteDoesNoHarm()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const LogCapture log;
        Trial trial(name);

        trial.takeChanges(bytes);

        QCOMPARE(trial.taken, 2 * std::min(bytes.size(), Trial::mostChanged));
        QCOMPARE(trial.inconsistent, 0);
    }

    void aPrefixOfAnotherFormatDoesNoHarm_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("JPEG") << "a.jpg";
        QTest::newRow("TGA") << "a.tga";
        QTest::newRow("BMP") << "a.bmp";
        QTest::newRow("TIFF") << "a.tif";
        QTest::newRow("EXR") << "a.exr";
        QTest::newRow("HDR") << "a.hdr";
    }
    void aPrefixOfAnotherFormatDoesNoHarm()
    {
        QFETCH(QString, name);
        const QByteArray bytes = bytesOf(name);
        const LogCapture log;
        Trial trial(name);

        trial.takePrefixes(bytes, 5);

        QCOMPARE(trial.taken, (bytes.size() + 4) / 5);
        QCOMPARE(trial.inconsistent, 0);
    }

    void aFileThatIsReplacedWhileItIsShownDoesNoHarm()
    {
        const DiskFolder disk;
        const QByteArray small = pngOf(filled(32, 32, Qt::red));
        const QByteArray large = pngOf(filled(512, 512, Qt::blue));
        disk.write("a.png", small);
        std::atomic<bool> isOver = false;
        std::thread writer([&] {
            while (!isOver) {
                disk.write("a.png", large);
                disk.write("a.png", small.left(40));
            }
        });

        int answers = 0;
        const LogCapture log;
        for (int count = 0; count < 200; ++count) {
            infoOf(disk.path("a.png"));
            const Shown shows = shown(descOf(disk.path("a.png")));
            answers += shows.picture.isNull() != shows.error.isEmpty() ? 1 : 0;
        }
        isOver = true;
        writer.join();

        QCOMPARE(answers, 200);
    }
};

QTEST_MAIN(tst_ImageFaults)
#include "tst_image_faults.moc"
