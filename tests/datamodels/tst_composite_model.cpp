#include "titled_composite.h"

#include <datamodels/proxy/tree_item_path_proxy_model.h>
#include <support/log_capture.h>
#include <support/paths.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QtTest>

using qelm::datamodels::proxy::TreeItemPathProxyModel;

namespace {

/// A list whose rows cannot be set.
class FixedList : public QStringListModel
{
public:
    using QStringListModel::QStringListModel;

    bool setData(const QModelIndex&, const QVariant&, int) override { return false; }
};

} // namespace

/// Mounting, roles and values; what happens when a mounted model changes has a test of its own.
class tst_CompositeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAMountThereAreNeitherRowsNorRoles()
    {
        const CompositeModel composite;

        QCOMPARE(composite.rowCount(), 0);
        QCOMPARE(composite.columnCount(), 1);
        QVERIFY(!composite.index(0, 0).isValid());
        QVERIFY(composite.roleNames().isEmpty());
    }

    void theRowsOfAModelStandBelowTheRowsOfItsPath()
    {
        TitledComposite composite;

        composite.mount("content/trees", {"oak", "  acorn", "elm"});

        QCOMPARE(treeLines(composite), (QStringList{"content", "  trees", "    oak", "      acorn", "    elm"}));
    }

    void mountsShareTheRowsOfTheirPath()
    {
        TitledComposite composite;
        composite.mount("a/b/m1", {"x"});
        composite.mount("a/b/m2", {"y"});

        composite.mount("a//b/m3", {"z"});

        QCOMPARE(treeLines(composite),
                 (QStringList{"a", "  b", "    m1", "      x", "    m2", "      y", "    m3", "      z"}));
    }

    void aLeadingSlashIsSkipped()
    {
        TitledComposite composite;

        composite.mount("/m", {"x"});

        QCOMPARE(treeLines(composite), (QStringList{"m", "  x"}));
    }

    void twoMountsOfOneNameAreTwoRows()
    {
        TitledComposite composite;
        composite.mount("a/m", {"x"});

        composite.mount("a/m", {"y"});

        QCOMPARE(treeLines(composite), (QStringList{"a", "  m", "    x", "  m", "    y"}));
    }

    void aMountIsNoPartOfAnotherPath()
    {
        TitledComposite composite;
        composite.mount("a", {"x"});

        composite.mount("a/m", {"y"});

        QCOMPARE(treeLines(composite), (QStringList{"a", "  x", "a", "  m", "    y"}));
    }

    void pathsAreComparedByCase()
    {
        TitledComposite composite;
        composite.mount("a/m", {});

        composite.mount("A/m", {});

        QCOMPARE(treeLines(composite), (QStringList{"a", "  m", "A", "  m"}));
    }

    void aPathIsReadAsUtf8()
    {
        TitledComposite composite;

        composite.mount("b\xc3\xa4ume/m", {});

        QCOMPARE(treeLines(composite), (QStringList{QString::fromUtf8("b\xc3\xa4ume"), "  m"}));
    }

    void aPathWithoutALastSegmentMountsNothing_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("assertions");
        QTest::newRow("empty") << "" << QStringList{"!path.empty()", "std::string::npos != lastPos"};
        QTest::newRow("slashes") << "//" << QStringList{"std::string::npos != lastPos"};
        QTest::newRow("slash at the end") << "a/b/" << QStringList{"std::string::npos != lastPos"};
    }

    void aPathWithoutALastSegmentMountsNothing()
    {
        QFETCH(QString, path);
        QFETCH(QStringList, assertions);
        CompositeModel composite;
        LogCapture log;

        composite.addSubmodel(path.toStdString(), std::make_shared<ScriptedTree>(QStringList{"x"}));

        QCOMPARE(log.assertions(), assertions);
        QCOMPARE(composite.rowCount(), 0);
    }

    void aNullModelIsNotMounted()
    {
        CompositeModel composite;
        LogCapture log;

        composite.addSubmodel("a/m", nullptr);

        QCOMPARE(log.assertions(), QStringList{"model"});
        QCOMPARE(composite.rowCount(), 0);
    }

    void eachNewRowOfAPathIsAnInsertion()
    {
        TitledComposite composite;
        composite.mount("a/m", {});
        QStringList heard;
        connect(&composite, &QAbstractItemModel::rowsInserted, this, [&](const QModelIndex&, int first, int last) {
            heard << QStringLiteral("[%1..%2]").arg(first).arg(last);
        });

        composite.mount("a/b/n", {});

        QCOMPARE(heard, (QStringList{"[1..1]", "[0..0]"}));
    }

    // Intended: the parent that is told has the row of its new child, and is valid for the root too.
    void aMountIsToldUnderAnIndexOfItsOwnKind()
    {
        TitledComposite composite;
        composite.mount("a/m", {});
        composite.mount("b", {});
        QModelIndexList parents;
        connect(&composite, &QAbstractItemModel::rowsInserted, this,
                [&](const QModelIndex& parent) { parents << parent; });
        LogCapture log;

        composite.mount("c", {});
        composite.mount("a/n", {});

        QCOMPARE(parents.size(), 2);
        QCOMPARE(parents[0].row(), 2);
        QCOMPARE(composite.rowCount(parents[0]), 3);
        QVERIFY(!parents[0].parent().isValid());
        QCOMPARE(log.assertions(), QStringList{"parent"});
        QCOMPARE(parents[1].row(), 1);
        QCOMPARE(parents[1].internalPointer(), composite.index(0, 0).internalPointer());
    }

    // Intended: proxies are stacked when all is mounted.
    void aSortFilterProxyOnTopDoesNotSeeALaterMount()
    {
        TitledComposite composite;
        composite.mount("a", {"x"});
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&composite);
        QCOMPARE(treeLines(proxy), (QStringList{"a", "  x"}));
        const LogCapture log;

        composite.mount("b", {"y"});
        QCOMPARE(treeLines(proxy), (QStringList{"a", "  x"}));

        proxy.invalidate();
        QCOMPARE(treeLines(proxy), (QStringList{"a", "  x", "b", "  y"}));
    }

    void rolesHaveNoNumberWhileAMountIsTold()
    {
        TitledComposite composite;
        QList<int> heard;
        connect(&composite, &QAbstractItemModel::rowsInserted, this, [&] { heard << composite.role("kind"); });

        composite.mount("m", {});

        QCOMPARE(heard, QList<int>{-1});
        QVERIFY(composite.role("kind") >= Qt::UserRole);
    }

    void aChildKnowsItsParent()
    {
        TitledComposite composite;
        composite.mount("a/m", {"oak", "  acorn"});

        const QModelIndex acorn = indexAt(composite, "/0/0/0/0");

        QCOMPARE(acorn.data(), QVariant("acorn"));
        QCOMPARE(pathOf(acorn), QString("/0/0/0/0"));
        QVERIFY(!composite.parent(composite.index(0, 0)).isValid());
        QVERIFY(!composite.parent({}).isValid());
    }

    void aRowHasOneIndex()
    {
        TitledComposite composite;
        composite.mount("m", {"oak", "elm"});

        QCOMPARE(indexAt(composite, "/0/1"), indexAt(composite, "/0/1"));
        QVERIFY(!composite.index(2, 0, composite.index(0, 0)).isValid());
        QVERIFY(!composite.index(0, 1, composite.index(0, 0)).isValid());
        QVERIFY(!composite.index(1, 0).isValid());
    }

    void thereAreNoRowsBehindThoseOfAPath()
    {
        TitledComposite composite;
        composite.mount("a/m", {});

        QCOMPARE(composite.rowCount(indexAt(composite, "/0")), 1);
        QVERIFY(!composite.index(1, 0, indexAt(composite, "/0")).isValid());
        QVERIFY(!composite.index(0, 0, indexAt(composite, "/0/0")).isValid());
    }

    void countsAreTheModelsOwn()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak"});
        QCOMPARE(composite.rowCount(composite.index(0, 0)), 1);

        model->insert({}, 0, {"elm", "ash"});

        QCOMPARE(composite.rowCount(composite.index(0, 0)), 3);
    }

    void userRolesOfOneNameAreOneRole()
    {
        TitledComposite composite;
        const auto first = composite.mount("m1", {"oak | kind=tree"});
        const auto second = std::make_shared<QStandardItemModel>();
        second->setItemRoleNames({{Qt::UserRole + 77, "kind"}, {Qt::DisplayRole, "display"}});
        second->appendRow(new QStandardItem("rock"));
        second->item(0)->setData("stone", Qt::UserRole + 77);

        composite.addSubmodel("m2", second);

        const int kind = composite.role("kind");
        QCOMPARE(indexAt(composite, "/0/0").data(kind), QVariant("tree"));
        QCOMPARE(indexAt(composite, "/1/0").data(kind), QVariant("stone"));
        QCOMPARE(composite.roleNames().keys("kind").size(), 1);
        QCOMPARE(composite.mapRoleToSource(first.get(), kind), int(ScriptedTree::KindRole));
        QCOMPARE(composite.mapRoleToSource(second.get(), kind), Qt::UserRole + 77);
    }

    void lowRolesKeepTheirNumbersAndTheirFirstName()
    {
        TitledComposite composite;
        const auto model = std::make_shared<QStandardItemModel>();
        model->setItemRoleNames({{Qt::DisplayRole, "title"}, {Qt::ToolTipRole, "hint"}});

        composite.addSubmodel("m", model);

        QCOMPARE(composite.roleNames().value(Qt::DisplayRole), QByteArray("display"));
        QCOMPARE(composite.roleNames().value(Qt::ToolTipRole), QByteArray("hint"));
    }

    void userRolesAreNumberedAnewFromTheFirst()
    {
        CompositeModel composite;
        const auto model = std::make_shared<QStandardItemModel>();
        model->setItemRoleNames({{Qt::UserRole + 40, "kind"}});

        composite.addSubmodel("m", model);

        QCOMPARE(composite.roleNames(), (QHash<int, QByteArray>{{Qt::UserRole, "kind"}}));
    }

    void aUserRoleDoesNotShareTheNumberOfALowRole()
    {
        CompositeModel composite;
        const auto low = std::make_shared<QStandardItemModel>();
        low->setItemRoleNames({{Qt::ToolTipRole, "kind"}});
        const auto high = std::make_shared<QStandardItemModel>();
        high->setItemRoleNames({{Qt::UserRole + 1, "kind"}});
        composite.addSubmodel("low", low);

        composite.addSubmodel("high", high);

        QCOMPARE(composite.roleNames(), (QHash<int, QByteArray>{{Qt::ToolTipRole, "kind"}, {Qt::UserRole, "kind"}}));
    }

    void aRoleThatAModelHasNotIsAnsweredByTheRowItself()
    {
        TitledComposite composite;
        composite.mount("m1", {"oak | kind=tree"});
        const auto second = std::make_shared<FixedList>(QStringList{"rock"});
        composite.addSubmodel("m2", second);
        const int kind = composite.role("kind");
        QCOMPARE(composite.mapRoleToSource(second.get(), kind), -1);
        QCOMPARE(indexAt(composite, "/1/0").data(kind), QVariant());

        composite.mapRoles(&composite, {{kind, "kind"}});
        composite.setData(indexAt(composite, "/1/0"), "stone", kind);

        QCOMPARE(indexAt(composite, "/1/0").data(kind), QVariant("stone"));
    }

    void aModelIsAskedForRoleMinusOneInPlaceOfARoleThatItHasNot()
    {
        TitledComposite composite;
        composite.mount("m1", {"oak | kind=tree"});
        const auto second = composite.mount("m2", {"rock"});
        second->change(second->find("rock"), "odd", -1);
        const int unknown = 9999;

        QCOMPARE(composite.mapRoleToSource(second.get(), unknown), -1);
        QCOMPARE(indexAt(composite, "/1/0").data(unknown), QVariant("odd"));
    }

    void rolesAreMappedFromTheModelBehindAnIndex()
    {
        TitledComposite composite;
        composite.mount("m", {"oak"});

        QCOMPARE(composite.mapRoleFromSorce(indexAt(composite, "/0/0"), ScriptedTree::KindRole),
                 composite.role("kind"));
        QCOMPARE(composite.mapRoleFromSorce(indexAt(composite, "/0/0"), 9999), -1);
        QCOMPARE(composite.mapRoleFromSorce(indexAt(composite, "/0"), Qt::DisplayRole), int(Qt::DisplayRole));
        QCOMPARE(composite.mapRoleFromSorce(QModelIndex(), ScriptedTree::KindRole), -1);
    }

    // Intended: a derived class decides what these rows show.
    void pathRowsOfAPlainCompositeShowNothing()
    {
        CompositeModel composite;

        composite.addSubmodel("a/m", std::make_shared<ScriptedTree>(QStringList{"oak"}));

        QCOMPARE(treeLines(composite), (QStringList{"(invalid)", "  (invalid)", "    oak"}));
    }

    void everyRowCanBeSelectedAndNoneEdited()
    {
        TitledComposite composite;
        composite.mount("m", {"oak"});

        QCOMPARE(composite.flags(indexAt(composite, "/0/0")), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QCOMPARE(composite.flags({}), Qt::ItemFlags());
    }

    void aValueIsSetInTheModelWhichTellsIt()
    {
        TitledComposite composite;
        const auto model = composite.mount("m", {"oak | kind=tree"});
        const QModelIndex oak = indexAt(composite, "/0/0");
        SignalLog log(composite);

        QVERIFY(composite.setData(oak, "wood", composite.role("kind")));

        QCOMPARE(log.take(), QStringList{"changed /0/0 roles 257"});
        QCOMPARE(model->index(0, 0).data(ScriptedTree::KindRole), QVariant("wood"));
    }

    void aValueThatTheModelRefusesIsKeptBehindTheModelsOwn()
    {
        TitledComposite composite;
        composite.addSubmodel("m", std::make_shared<FixedList>(QStringList{"rock"}));
        const QModelIndex rock = indexAt(composite, "/0/0");
        SignalLog log(composite);

        QVERIFY(composite.setData(rock, "stone", Qt::DisplayRole));

        QCOMPARE(log.take(), QStringList{"changed /0/0"});
        QCOMPARE(rock.data(), QVariant("rock"));
    }

    void aValueOfAMountIsKeptAndToldWithoutRoles()
    {
        TitledComposite composite;
        composite.mount("m", {});
        SignalLog log(composite);

        QVERIFY(composite.setData(composite.index(0, 0), "mount", Qt::DisplayRole));

        QCOMPARE(log.take(), QStringList{"changed /0"});
        QCOMPARE(composite.index(0, 0).data(), QVariant("mount"));
    }

    void aValueOfAMountIsNotReadWithoutARoleOfTheCompositeItself()
    {
        CompositeModel composite;
        composite.addSubmodel("m", std::make_shared<ScriptedTree>());

        QVERIFY(composite.setData(composite.index(0, 0), "mount", Qt::DisplayRole));

        QCOMPARE(composite.index(0, 0).data(), QVariant());
    }

    void aValueOfTheRootIsToldOfTheInvalidIndex()
    {
        TitledComposite composite;
        SignalLog log(composite);

        QVERIFY(composite.setData({}, "root", Qt::DisplayRole));

        QCOMPARE(log.take(), QStringList{"changed /"});
        QCOMPARE(composite.data({}), QVariant());
    }

    void indexesOfOtherModelsHaveNothing()
    {
        ScriptedTree other({"x", "  y"});
        TitledComposite composite;
        composite.mount("m", {"oak"});

        QCOMPARE(composite.rowCount(other.index(0, 0)), 0);
        QVERIFY(!composite.index(0, 0, other.index(0, 0)).isValid());
        QVERIFY(!composite.parent(other.find("y")).isValid());
        QCOMPARE(composite.data(other.index(0, 0)), QVariant());
        QVERIFY(!composite.setData(other.index(0, 0), 1));
        QCOMPARE(composite.mapRoleFromSorce(other.index(0, 0), ScriptedTree::KindRole), -1);
    }

    void aRowWithoutAnIndexInItsModelIsReportedAndHasNoValue()
    {
        ScriptedTree tree({"oak"});
        const auto path = std::make_shared<TreeItemPathProxyModel>(true);
        path->setSourceModel(&tree);
        path->setSourceTailIndex(tree.find("oak"));
        TitledComposite composite;
        composite.addSubmodel("m", path);
        LogCapture log;

        const QModelIndex root = indexAt(composite, "/0/0");

        QCOMPARE(log.assertions(), QStringList{"modelIndex_.isValid()"});
        QCOMPARE(root.data(), QVariant());
        QCOMPARE(composite.rowCount(root), 0);
        QCOMPARE(indexAt(composite, "/0/1").data(), QVariant("oak"));
    }

    void aModelThatDiesAllTheSameHasNoRows()
    {
        auto* model = new ScriptedTree(QStringList{"oak", "  acorn"});
        TitledComposite composite;
        composite.addSubmodel("m", std::shared_ptr<QAbstractItemModel>(model, [](QAbstractItemModel*) {}));
        const QModelIndex oak = indexAt(composite, "/0/0");

        delete model;

        QCOMPARE(treeLines(composite), QStringList{"m"});
        QCOMPARE(oak.data(), QVariant());
        QCOMPARE(composite.rowCount(oak), 0);
        QVERIFY(composite.setData(oak, 1));
    }

    void aModelMayOutliveTheComposite()
    {
        const auto model = std::make_shared<ScriptedTree>(QStringList{"oak"});
        {
            TitledComposite composite;
            composite.addSubmodel("m", model);
            QCOMPARE(treeLines(composite), (QStringList{"m", "  oak"}));
        }

        model->insert({}, 0, {"elm"});
        model->reset({"ash"});

        QCOMPARE(treeLines(*model), QStringList{"ash"});
    }

    void followsQtsContractWhenMounted()
    {
        TitledComposite composite;
        const QAbstractItemModelTester tester(&composite, QAbstractItemModelTester::FailureReportingMode::QtTest);
        const LogCapture log; // the index of a mount is asked for its parent

        composite.mount("a/m", {"oak", "  acorn"});
        composite.mount("a/n", {"elm"});

        QCOMPARE(treeLines(composite), (QStringList{"a", "  m", "    oak", "      acorn", "  n", "    elm"}));
    }
};

QTEST_GUILESS_MAIN(tst_CompositeModel)
#include "tst_composite_model.moc"
