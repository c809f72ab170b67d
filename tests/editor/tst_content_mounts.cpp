#include "sample_project.h"

#include <panels/mounts/content_mounts.h>
#include <panels/mounts/mounts_panel.h>
#include <panels/mounts/resetting_proxy.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QtTest>

using editor::ContentMounts;
using editor::MountsPanel;
using editor::ResettingProxy;

namespace {

QModelIndex rowAt(const QAbstractItemModel& model, const QStringList& names)
{
    QModelIndex found;
    for (const QString& name : names)
        found = model.match(model.index(0, 0, found), Qt::DisplayRole, name, 1, Qt::MatchExactly).value(0);
    return found;
}

} // namespace

class tst_ContentMounts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theModelsStandUnderTheirPaths()
    {
        const SampleProject project;
        const ContentMounts mounts(project.path());

        QCOMPARE(treeLines(mounts),
                 (QStringList{"project",       "  boats",       "    Sail.mesh",  "    barge.mesh",
                              "  notes.txt",   "  scripts",     "    arena_defs", "      quay.xml",
                              "    weir.lua",  "  textures",    "    quay.png",   "library",
                              "  Model",       "    Sail.mesh", "    barge.mesh", "  Document",
                              "    notes.txt", "  Map",         "    quay.xml",   "  Script",
                              "    weir.lua",  "  Texture",     "    quay.png",   "content",
                              "  files",       "    Sail.mesh", "    barge.mesh", "    notes.txt",
                              "    quay.xml",  "    weir.lua",  "    quay.png"}));
    }

    void aRoleIsOneForAllModelsByItsName()
    {
        const SampleProject project;
        const ContentMounts mounts(project.path());
        const int size = mounts.roleNames().key("size");

        QCOMPARE(rowAt(mounts, {"project", "notes.txt"}).data(size), QVariant(5));
        QCOMPARE(rowAt(mounts, {"library", "Document", "notes.txt"}).data(size), QVariant(5));
        QCOMPARE(rowAt(mounts, {"content", "files", "notes.txt"}).data(size), QVariant(5));
    }

    void allRowsHaveAnIconAndAKey()
    {
        const SampleProject project;
        const ContentMounts mounts(project.path());

        QCOMPARE(mounts.roleNames().value(ContentMounts::IconRole), QByteArray("icon"));
        QCOMPARE(mounts.roleNames().value(ContentMounts::KeyRole), QByteArray("key"));
        QCOMPARE(rowAt(mounts, {"content"}).data(ContentMounts::IconRole), QVariant("folder"));
        QCOMPARE(rowAt(mounts, {"project", "scripts", "weir.lua"}).data(ContentMounts::IconRole),
                 QVariant("script"));
        QCOMPARE(rowAt(mounts, {"library", "Map"}).data(ContentMounts::IconRole), QVariant("map"));
        QCOMPARE(rowAt(mounts, {"library", "Map"}).data(ContentMounts::KeyRole), QVariant("/library/Map"));
        QCOMPARE(rowAt(mounts, {"content", "files", "weir.lua"}).data(ContentMounts::IconRole),
                 QVariant("script"));
    }

    void reloadingReadsAllModelsAnew()
    {
        SampleProject project;
        ContentMounts mounts(project.path());
        project.write("sounds/gulls.bank", 1);
        QFile::remove(project.filePath("notes.txt"));

        mounts.reload();

        QVERIFY(rowAt(mounts, {"project", "sounds", "gulls.bank"}).isValid());
        QVERIFY(rowAt(mounts, {"library", "Sound bank", "gulls.bank"}).isValid());
        QVERIFY(!rowAt(mounts, {"content", "files", "notes.txt"}).isValid());
        QVERIFY(rowAt(mounts, {"content", "files", "weir.lua"}).isValid());
    }

    void aRemovalIsToldAsAReset()
    {
        ScriptedTree source({"a", "b", "c"});
        const ResettingProxy proxy(source);
        SignalLog log(proxy);

        source.removeRow(1);

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(proxy), (QStringList{"a", "c"}));
    }

    void allElseIsToldAsItIs()
    {
        ScriptedTree source({"a", "b", "c"});
        const ResettingProxy proxy(source);
        SignalLog log(proxy);

        source.insert({}, 1, {"x"});
        source.change(source.find("c"), "d");

        QCOMPARE(log.take(), (QStringList{"inserting / [1..1]", "inserted / [1..1]", "changed /3 roles 0"}));
    }

    void theFilterOnTopOutlivesRemovals()
    {
        SampleProject project;
        MountsPanel panel({project.path()});
        panel.setWords("mesh");
        panel.filtered()->press(panel.filtered()->rows()->rowCount() - 1, false);
        QFile::remove(project.filePath("boats/Sail.mesh"));

        panel.reload();

        QCOMPARE(panel.filtered()->rows()->rowCount(), 9);
        QCOMPARE(panel.status(), QString("9 of 28 rows pass"));
    }

    void aBranchCannotBeShownAloneWithoutACurrentRow()
    {
        const SampleProject project;
        MountsPanel panel({project.path()});

        panel.setBranchOnly(true);

        QVERIFY(!panel.isBranchOnly());
    }
};

QTEST_GUILESS_MAIN(tst_ContentMounts)
#include "tst_content_mounts.moc"
