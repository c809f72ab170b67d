#include "sample_atlas.h"

#include <host/resources/multi_file_system.h>
#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>
#include <support/log_capture.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

/// Textures added by the user's choice in a real file dialog.
class tst_AtlasTextures : public QObject
{
    Q_OBJECT

    std::unique_ptr<AtlasDesk> desk;
    std::unique_ptr<AtlasAsset> asset;
    std::unique_ptr<Ozy::ChangesController> history;
    QStringList dialogs;

    void load(AtlasViewData::Point grid, const QStringList& stems)
    {
        desk->writeAtlas(grid, stems);
        asset = std::make_unique<AtlasAsset>("content/sheet", history.get());
    }
    QString path(const QString& stem) const { return desk->disk.path(QString::fromStdString(textureOf(stem))); }

    /// What the user does when the dialog has come: enters the paths, or cancels if there are none.
    void answerDialog(const QStringList& paths)
    {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) {
            QTimer::singleShot(10, this, [this, paths] { answerDialog(paths); });
            return;
        }
        dialogs << dialog->windowTitle() << dialog->directory().path() << dialog->nameFilters();
        if (paths.isEmpty()) {
            dialog->reject();
            return;
        }
        dialog->setDirectory(QFileInfo(paths.first()).path());
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText('"' + paths.join("\" \"") + '"');
        QMetaObject::invokeMethod(dialog, "accept");
    }
    void choose(const QStringList& paths)
    {
        QTimer::singleShot(0, this, [this, paths] { answerDialog(paths); });
        const Ozy::CommitChangesScope scope("Add textures", history.get());
        asset->addTextures();
    }

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void init()
    {
        desk = std::make_unique<AtlasDesk>();
        history = std::make_unique<Ozy::ChangesController>();
        dialogs.clear();
    }
    void cleanup()
    {
        history.reset();
        asset.reset();
        desk.reset();
    }

    void theDialogStartsInTheContentAndOffersAmTextures()
    {
        load({2, 1}, {"oak"});

        choose({});

        QCOMPARE(dialogs, (QStringList{"Choose files...", desk->disk.path("content"), "AM tiles (*_AM.png)"}));
    }

    void chosenTexturesFillTheFirstFreeSlots()
    {
        load({4, 1}, {"-", "oak", "-", "-"});
        desk->writeTextures({"elm", "ash"});
        LogCapture log;

        choose({path("elm"), path("ash")});

        QCOMPARE(stemsOf(*asset), (QStringList{"elm", "oak", "ash", "-"}));
        QCOMPARE(log.messages(), QStringList());
        QCOMPARE(asset->getTile(2)->texturePath(AtlasType::MAO), std::string("content/ash_MAO.png"));
    }

    void aCancelledDialogIsNoStep()
    {
        load({2, 1}, {"oak"});

        choose({});

        QCOMPARE(history->count(), 0);
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void whatFindsNoSlotIsLeftOutSilently()
    {
        load({2, 1}, {"oak"});
        desk->writeTextures({"elm", "ash"});
        LogCapture log;

        choose({path("elm"), path("ash")});

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
        QCOMPARE(log.messages(), QStringList());
    }

    void withoutAFreeSlotNothingHappens()
    {
        load({1, 1}, {"oak"});
        desk->writeTextures({"elm"});
        LogCapture log;

        choose({path("elm")});

        QCOMPARE(stemsOf(*asset), QStringList{"oak"});
        QCOMPARE(log.messages(), QStringList());
        QCOMPARE(history->count(), 0);
    }

    void aTextureThatIsThereAlreadyIsLeftOut()
    {
        load({2, 1}, {"oak"});
        LogCapture log;

        choose({path("oak")});

        QCOMPARE(log.messages(), QStringList{"5 Texture file 'content/oak_AM.png' is already in atlass. Skipping."});
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void aTextureIsAddedOnce()
    {
        load({3, 1}, {"oak"});
        desk->writeTextures({"elm"});
        LogCapture log;

        AtlasAssetAccess::addTextures(*asset, {path("elm"), path("elm")}); // a dialog gives each file once

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm", "-"}));
        QCOMPARE(log.messages(), QStringList{"5 Texture file 'content/elm_AM.png' is already in atlass. Skipping."});
    }

    void aFileOutsideOfTheResourcesIsLeftOut()
    {
        load({2, 1}, {"oak"});
        const DiskFolder elsewhere;
        elsewhere.write("elm_AM.png");
        LogCapture log;

        choose({elsewhere.path("elm_AM.png")});

        QCOMPARE(log.messages(), QStringList{"5 Texture file '" + elsewhere.path("elm_AM.png")
                                             + "' is not in current branch. Skipping."});
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void aFileThatAnotherRootHidesIsLeftOut()
    {
        load({2, 1}, {"oak"});
        desk->writeTextures({"elm"});
        const DiskFolder below;
        below.write("content/elm_AM.png");
        Ozy::FS::fileSystem()->setRoots({desk->disk.bytes(), below.bytes()});
        LogCapture log;

        choose({below.path("content/elm_AM.png")});

        QCOMPARE(log.messages().last(),
                 "5 Could not dissolve texture path '" + below.path("content/elm_AM.png") + "'. Skipping.");
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void aFileOfAnotherSizeUsesNoSlotUp()
    {
        load({2, 1}, {"oak"});
        desk->writeTextures({"elm"});
        desk->writeImage("content/big_AM.png", 9);
        LogCapture log;

        choose({path("big"), path("elm")});

        QCOMPARE(log.messages(), QStringList{"5 Selected image size mismatch 'content/big_AM.png'. Image size: 9x9, "
                                             "required size: 8."});
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
    }

    void namesNeedNotBeAscii()
    {
        const QString stem = QString::fromUtf8("дуб 橡树");
        load({1, 1}, {"oak"});
        asset->getTile(0)->setTexture(AtlasType::AM, "");
        desk->writeTextures({stem});

        choose({path(stem)});

        QCOMPARE(stemsOf(*asset), QStringList{stem});
    }

    void addedTexturesAreUndoneAndRedone()
    {
        load({4, 1}, {"-", "oak", "-", "-"});
        desk->writeTextures({"elm", "ash"});
        choose({path("elm"), path("ash")});

        QVERIFY(history->undo());
        QCOMPARE(stemsOf(*asset), (QStringList{"-", "oak", "-", "-"}));
        QVERIFY(asset->getTile(0)->isEmpty());

        QVERIFY(history->redo());
        QCOMPARE(stemsOf(*asset), (QStringList{"elm", "oak", "ash", "-"}));
    }

    void whatIsRedoneTakesTheFirstSlotsThatAreFreeThen()
    {
        load({3, 1}, {"oak", "-", "-"});
        desk->writeTextures({"elm"});
        choose({path("elm")});
        history->undo();
        asset->getTile(0)->setTexture(AtlasType::AM, "");

        QVERIFY(history->redo());

        QCOMPARE(stemsOf(*asset), (QStringList{"elm", "-", "-"}));
    }

    void aTextureThatIsGoneMeanwhileIsNotRedone()
    {
        load({2, 1}, {"oak"});
        desk->writeTextures({"elm"});
        choose({path("elm")});
        history->undo();
        desk->disk.remove("content/elm_AM.png");
        LogCapture log;

        QVERIFY(history->redo());

        QVERIFY(log.messages().contains("5 File 'content/elm_AM.png' doesn't exist."));
        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void aStepThatAddedNothingRefusesToBeUndone()
    {
        load({2, 1}, {"oak"});
        LogCapture log;
        choose({path("oak")});
        QCOMPARE(history->count(), 1);

        QVERIFY(!history->undo());

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "-"}));
    }

    void withoutATransactionTheEditStands()
    {
        load({2, 1}, {"oak"});
        desk->writeTextures({"elm"});
        QTimer::singleShot(0, this, [this] { answerDialog({path("elm")}); });

        zarn::reflect(*asset).findPropertyByName("addTextures").genericInvoke({}, 0, nullptr);

        QCOMPARE(stemsOf(*asset), (QStringList{"oak", "elm"}));
        QCOMPARE(history->count(), 0);
    }
};

QTEST_MAIN(tst_AtlasTextures)
#include "tst_atlas_textures.moc"
