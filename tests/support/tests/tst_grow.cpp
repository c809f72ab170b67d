#include <support/grow.h>
#include <support/without_root_flags.h>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <stdexcept>

using Reporting = QAbstractItemModelTester::FailureReportingMode;

class tst_Grow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aNodeTreeGrowsFromLines()
    {
        WithoutRootFlags<SimpleTreeModel> model;
        const QAbstractItemModelTester tester(&model, Reporting::QtTest);

        const Tree tree = grow(model, {"a", "  x", "    deep", "b"});

        QCOMPARE(treeLines(model), (QStringList{"a", "  x", "    deep", "b"}));
        QCOMPARE(tree["deep"].parent(), &tree["x"]);
    }

    void growingGoesOnBehindWhatIsThere()
    {
        SimpleTreeModel model;
        grow(model, {"a"});

        const Tree tree = grow(model, {"b"});

        QCOMPARE(treeLines(model), (QStringList{"a", "b"}));
        QCOMPARE(tree["b"].row(), std::size_t(1));
    }

    void theTextOfANodeCanBeSet()
    {
        SimpleTreeModel model;
        grow(model, {"a"});

        QVERIFY(model.setData(model.index(0, 0), "b"));

        QCOMPARE(treeLines(model), QStringList{"b"});
        QVERIFY(!model.setData(model.index(0, 0), 7, Qt::UserRole));
    }

    void aScriptedTreeGrowsFromLines()
    {
        ScriptedTree model({"before"});

        const TreeRows rows = grow(model, {"a | size=2", "  x", "b"});

        QCOMPARE(treeLines(model), (QStringList{"before", "a", "  x", "b"}));
        QCOMPARE(rows["x"], model.find("x"));
        QCOMPARE(rows["a"].data(ScriptedTree::SizeRole), QVariant(2));
    }

    void rowsOfAScriptedTreeAreFollowed()
    {
        ScriptedTree model;
        const TreeRows rows = grow(model, {"a", "b"});

        model.move({}, 1, 1, {}, 0);
        model.remove({}, 1);

        QCOMPARE(rows["b"], model.index(0, 0));
        QCOMPARE(rows["a"], QModelIndex());
    }

    void aTextThatIsUnknownOrNotUniqueIsRefused()
    {
        SimpleTreeModel model;

        const Tree tree = grow(model, {"a", "  a"});

        QVERIFY_EXCEPTION_THROWN(tree["a"], std::out_of_range);
        QVERIFY_EXCEPTION_THROWN(tree["b"], std::out_of_range);
    }
};

QTEST_GUILESS_MAIN(tst_Grow)
#include "tst_grow.moc"
