#include "sample_images.h"

#include <datamodels/image/flat_image_info_model.h>
#include <datamodels/image/image_info_model.h>
#include <datamodels/image/simple_image_model.h>
#include <host/registry/instances.h>
#include <host/resources/disk_monitor.h>

#include <support/disk_folder.h>
#include <support/signal_log.h>

#include <QColor>
#include <QtTest>

using namespace datamodels;

/// What the models do when the file changes on the real disk, under the real monitor.
class tst_ImageChanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { instances::set<IFileSystemMonitor>(&Ozy::FS::DiskMonitor::instance()); }
    void init()
    {
        m_folder = std::make_unique<DiskFolder>();
        m_folder->write("plain.png", SampleImages::png(8, 4, QImage::Format_RGBA8888));
    }

    void theTableOfFactsIsReadAgain()
    {
        ImageInfoModel model;
        model.setFileName(m_folder->path("plain.png"));
        QTRY_COMPARE(model.rowCount(), 10);
        SignalLog log;
        log.addAll(model);

        m_folder->write("plain.png", SampleImages::png(2, 2, QImage::Format_RGBA8888));
        QTRY_COMPARE(model.index(0).data(256), QVariant(2));
        QTRY_COMPARE(model.rowCount(), 10);

        QCOMPARE(log.take().mid(0, 3), (QStringList{"resetting", "reset", "changed /0 roles 0,256"}));
    }

    void thePreviewIsLoadedAgain()
    {
        SimpleImageModel model;
        model.setFileName(m_folder->path("plain.png"));
        QTRY_COMPARE(model.status(), SimpleImageModel::Ready);
        const QUrl before = model.index(0).data(256).toUrl();

        m_folder->write("plain.png", SampleImages::png(2, 2, QImage::Format_RGB888));
        QTRY_COMPARE(model.channelCount(), 3u);
        QTRY_COMPARE(model.status(), SimpleImageModel::Ready);

        // Another URL, or the view would go on with what it has.
        QVERIFY(model.index(0).data(256).toUrl() != before);
    }

    void aFileThatGoesIsAnErrorAndComesBack()
    {
        SimpleImageModel model;
        model.setFileName(m_folder->path("plain.png"));
        QTRY_COMPARE(model.status(), SimpleImageModel::Ready);

        m_folder->remove("plain.png");
        QTRY_COMPARE(model.status(), SimpleImageModel::Error);
        m_folder->write("plain.png", SampleImages::png(2, 2, QImage::Format_RGB888));

        QTRY_COMPARE(model.status(), SimpleImageModel::Ready);
    }

    void theFormOfFactsStaysAsItIs()
    {
        ImageInfoModel table;
        table.setFileName(m_folder->path("plain.png"));
        FlatImageInfoModel form;
        form.setFileName(m_folder->path("plain.png"));
        QTRY_VERIFY(form.valid());
        QTRY_COMPARE(table.rowCount(), 10);
        SignalLog log;
        log.addAll(form);

        m_folder->write("plain.png", SampleImages::png(2, 2, QImage::Format_RGBA8888));
        QTRY_COMPARE(table.index(0).data(256), QVariant(2));

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(form.width(), 8);
    }

    void changesOfOtherFilesAreNotHeard()
    {
        m_folder->write("other.png", SampleImages::png(2, 2, QImage::Format_RGB888));
        ImageInfoModel model;
        model.setFileName(m_folder->path("plain.png"));
        ImageInfoModel other;
        other.setFileName(m_folder->path("other.png"));
        QTRY_COMPARE(model.rowCount(), 10);
        QTRY_COMPARE(other.rowCount(), 10);
        SignalLog log;
        log.addAll(model);

        m_folder->write("other.png", SampleImages::png(3, 3, QImage::Format_RGB888));
        QTRY_COMPARE(other.index(0).data(256), QVariant(3));

        QCOMPARE(log.take(), QStringList());
    }

    void cleanupTestCase() { instances::set<IFileSystemMonitor>(nullptr); }

private:
    std::unique_ptr<DiskFolder> m_folder;
};

QTEST_GUILESS_MAIN(tst_ImageChanges)
#include "tst_image_changes.moc"
