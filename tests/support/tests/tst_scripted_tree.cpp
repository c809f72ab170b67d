#include <support/scripted_tree.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <stdexcept>

using Reporting = QAbstractItemModelTester::FailureReportingMode;

class tst_ScriptedTree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLinesOfTheConstructorAreItsRows()
    {
        const ScriptedTree tree({"a", "  x", "b"});

        QCOMPARE(treeLines(tree), (QStringList{"a", "  x", "b"}));
        QCOMPARE(tree.size(), 3);
    }

    void valuesOfOtherRolesStandBehindBars()
    {
        const ScriptedTree tree({"oak | kind=tree | size=3"});

        QCOMPARE(tree.index(0, 0).data().toString(), QStringLiteral("oak"));
        QCOMPARE(tree.index(0, 0).data(ScriptedTree::KindRole).toString(), QStringLiteral("tree"));
        QCOMPARE(tree.index(0, 0).data(ScriptedTree::SizeRole), QVariant(3));
    }

    void aLineWithAnUnknownRoleIsRefused()
    {
        QVERIFY_EXCEPTION_THROWN(ScriptedTree({"oak | age=3"}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(ScriptedTree({"oak | id=3"}), std::invalid_argument);
    }

    void itsRolesHaveNames()
    {
        const QHash<int, QByteArray> names = ScriptedTree().roleNames();

        QCOMPARE(names.value(Qt::DisplayRole), QByteArray("display"));
        QCOMPARE(names.value(ScriptedTree::KindRole), QByteArray("kind"));
        QCOMPARE(names.value(ScriptedTree::SizeRole), QByteArray("size"));
        QCOMPARE(names.value(ScriptedTree::IdRole), QByteArray("id"));
        QCOMPARE(names.value(ScriptedTree::KeyRole), QByteArray("key"));
    }

    void furtherColumnsShowTheTextWithTheirNumber()
    {
        const ScriptedTree tree({"a"}, 3);

        QCOMPARE(tree.columnCount(), 3);
        QCOMPARE(tree.index(0, 2).data().toString(), QStringLiteral("a.2"));
        QCOMPARE(tree.rowCount(tree.index(0, 1)), 0);
    }

    void aRowIsFoundByItsText()
    {
        const ScriptedTree tree({"a", "  x", "b"});

        QCOMPARE(tree.find("x"), tree.index(0, 0, tree.index(0, 0)));
        QVERIFY_EXCEPTION_THROWN(tree.find("y"), std::out_of_range);
    }

    void aTextThatIsThereTwiceIsNotFound()
    {
        const ScriptedTree tree({"a", "  a"});

        QVERIFY_EXCEPTION_THROWN(tree.find("a"), std::out_of_range);
    }

    void aRowKeepsItsIdForLife()
    {
        ScriptedTree tree({"a", "b"});
        const int id = tree.find("b").data(ScriptedTree::IdRole).toInt();

        tree.move({}, 1, 1, {}, 0);
        tree.change(tree.find("b"), "c");
        QCOMPARE(tree.findId(id), tree.index(0, 0));
        QCOMPARE(tree.index(0, 0).data().toString(), QStringLiteral("c"));

        tree.remove({}, 0);
        QCOMPARE(tree.findId(id), QModelIndex());
    }

    void aForestIsInsertedUnderOneNotification()
    {
        ScriptedTree tree({"a", "b"});
        SignalLog log(tree);

        tree.insert(tree.find("a"), 0, {"x", "  deep", "y"});

        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..1]", "inserted /0 [0..1]"}));
        QCOMPARE(treeLines(tree), (QStringList{"a", "  x", "    deep", "  y", "b"}));
    }

    void noLinesAreNoInsertion()
    {
        ScriptedTree tree;
        SignalLog log(tree);

        tree.insert({}, 0, {});

        QCOMPARE(log.take(), QStringList());
    }

    void aRangeIsRemoved()
    {
        ScriptedTree tree({"a", "b", "c", "d"});
        SignalLog log(tree);

        tree.remove({}, 1, 2);

        QCOMPARE(log.take(), (QStringList{"removing / [1..2]", "removed / [1..2]"}));
        QCOMPARE(treeLines(tree), (QStringList{"a", "d"}));
    }

    void aRangeIsMoved_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("to");
        QTest::addColumn<int>("before");
        QTest::addColumn<QStringList>("lines");

        QTest::newRow("down") << "a" << 0 << 2 << "a" << 3
                              << QStringList{"a", "  z", "  x", "  y", "b", "  w"};
        QTest::newRow("up") << "a" << 2 << 1 << "a" << 0 << QStringList{"a", "  z", "  x", "  y", "b", "  w"};
        QTest::newRow("to another parent")
            << "a" << 1 << 2 << "b" << 0 << QStringList{"a", "  x", "b", "  y", "  z", "  w"};
        QTest::newRow("below a leaf")
            << "b" << 0 << 1 << "x" << 0 << QStringList{"a", "  x", "    w", "  y", "  z", "b"};
    }

    void aRangeIsMoved()
    {
        QFETCH(QString, from);
        QFETCH(int, row);
        QFETCH(int, count);
        QFETCH(QString, to);
        QFETCH(int, before);
        ScriptedTree tree({"a", "  x", "  y", "  z", "b", "  w"});
        const QAbstractItemModelTester tester(&tree, Reporting::QtTest);

        tree.move(tree.find(from), row, count, tree.find(to), before);

        QTEST(treeLines(tree), "lines");
    }

    void aMoveIsOneNotification()
    {
        ScriptedTree tree({"a", "  x", "b"});
        SignalLog log(tree);

        tree.move(tree.find("a"), 0, 1, tree.find("b"), 0);

        QCOMPARE(log.take(), (QStringList{"moving /0 [0..0] to /1 [0]", "moved /0 [0..0] to /1 [0]"}));
    }

    void aRangeOfCellsIsChangedAtOnce()
    {
        ScriptedTree tree({"a", "b", "c"}, 2);
        SignalLog log(tree);

        tree.change(tree.index(1, 0), tree.index(2, 1), ScriptedTree::SizeRole, {1, 2, 3});

        QCOMPARE(log.take(), QStringList{"changed /1 .. /2:1 roles 258"});
        QCOMPARE(tree.index(1, 1).data(ScriptedTree::SizeRole), QVariant(2));
        QCOMPARE(tree.index(2, 1).data(ScriptedTree::SizeRole), QVariant(1));
    }

    void aChangeCanKeepItsRoleToItself()
    {
        ScriptedTree tree({"a"});
        SignalLog log(tree);

        tree.change(tree.index(0, 0), tree.index(0, 0), Qt::DisplayRole, {"b"}, ScriptedTree::TellNoRoles);

        QCOMPARE(log.take(), QStringList{"changed /0"});
    }

    void editingIsADisplayChange()
    {
        ScriptedTree tree({"a"});
        SignalLog log(tree);

        QVERIFY(tree.setData(tree.index(0, 0), "b"));

        QCOMPARE(log.take(), QStringList{"changed /0 roles 0"});
        QCOMPARE(treeLines(tree), QStringList{"b"});
    }

    void theKeyTellsRowsOfTheSameTextApart()
    {
        const ScriptedTree tree({"a", "a"});

        QCOMPARE(tree.index(0, 0).data(ScriptedTree::KeyRole), QVariant("a 1"));
        QCOMPARE(tree.index(1, 0).data(ScriptedTree::KeyRole), QVariant("a 2"));
    }

    void theIdAndTheKeyCannotBeSet()
    {
        ScriptedTree tree({"a"});

        QVERIFY(!tree.setData(tree.index(0, 0), 7, ScriptedTree::KeyRole));
        QVERIFY(!tree.setData(tree.index(0, 0), 7, ScriptedTree::IdRole));
    }

    void rearrangedRowsTakeTheirPersistentIndexesWithThem()
    {
        ScriptedTree tree({"a", "  x", "  y", "  z"});
        const QPersistentModelIndex y = tree.find("y");
        SignalLog log(tree);

        tree.rearrange(tree.find("a"), {2, 0, 1});

        QCOMPARE(log.take(),
                 (QStringList{"layout changing /0 sorted rows", "layout changed /0 sorted rows"}));
        QCOMPARE(treeLines(tree), (QStringList{"a", "  z", "  x", "  y"}));
        QCOMPARE(QModelIndex(y), tree.find("y"));
        QCOMPARE(y.row(), 2);
    }

    void aLayoutChangeCanConcernTheWholeModel()
    {
        ScriptedTree tree({"a", "b"});
        SignalLog log(tree);

        tree.rearrange({}, {1, 0}, ScriptedTree::TellNoParents);

        QCOMPARE(log.take(), (QStringList{"layout changing sorted rows", "layout changed sorted rows"}));
    }

    void aResetExchangesTheRows()
    {
        ScriptedTree tree({"a"});
        SignalLog log(tree);

        tree.reset({"b", "  c"});

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
        QCOMPARE(treeLines(tree), (QStringList{"b", "  c"}));
    }

    void anIndexOfARemovedRowGetsNoAnswerAndIsCounted()
    {
        ScriptedTree tree({"a", "  x"}, 1);
        const QModelIndex a = tree.find("a");
        const QModelIndex x = tree.find("x");
        tree.remove({}, 0);
        QCOMPARE(tree.staleQuestions(), 0);

        QCOMPARE(tree.data(x), QVariant());
        QCOMPARE(tree.rowCount(a), 0);
        QCOMPARE(tree.parent(x), QModelIndex());

        QCOMPARE(tree.staleQuestions(), 3);
    }

    void anIndexFromBeforeAResetIsCounted()
    {
        ScriptedTree tree({"a"});
        const QModelIndex a = tree.find("a");

        tree.reset({"b"});

        QCOMPARE(tree.data(a), QVariant());
        QCOMPARE(tree.staleQuestions(), 1);
    }

    void whatIsNotLegalIsRefusedBeforeItIsAnnounced()
    {
        ScriptedTree tree({"a", "  x", "b"}, 2);
        SignalLog log(tree);

        QVERIFY_EXCEPTION_THROWN(tree.insert({}, 3, {"c"}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.insert(tree.index(0, 1), 0, {"c"}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.remove({}, 1, 2), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.remove({}, 0, 0), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.move({}, 0, 1, {}, 1), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.move({}, 0, 1, tree.find("x"), 0), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.rearrange({}, {0, 0}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.change(tree.find("a"), tree.find("x"), 0, {"c"}),
                                 std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(tree.reset({"  c"}), std::invalid_argument);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(treeLines(tree), (QStringList{"a", "  x", "b"}));
    }

    void theInterfaceOfAnItemModelMakesTheSameChanges()
    {
        ScriptedTree tree({"a", "b"});

        QVERIFY(tree.insertRows(2, 2));
        QVERIFY(tree.moveRows({}, 0, 1, {}, 4));
        QVERIFY(tree.removeRows(0, 2));

        QCOMPARE(treeLines(tree), (QStringList{"new", "a"}));
        QVERIFY(!tree.insertRows(3, 1));
        QVERIFY(!tree.moveRows({}, 0, 1, {}, 1));
        QVERIFY(!tree.removeRows(1, 2));
    }

    void everyChangeKeepsTheRulesOfAnItemModel()
    {
        ScriptedTree tree({"a", "  x", "b"}, 2);
        const QAbstractItemModelTester tester(&tree, Reporting::QtTest);

        tree.insert(tree.find("b"), 0, {"c", "  d"});
        tree.move({}, 0, 1, tree.find("b"), 1);
        tree.change(tree.index(0, 0), tree.index(0, 1), Qt::DisplayRole, {"e", "f"});
        tree.rearrange(tree.index(0, 0), {1, 0});
        tree.remove(tree.index(0, 0), 1);
        tree.reset({"g"});

        QCOMPARE(treeLines(tree), QStringList{"g"});
    }
};

QTEST_GUILESS_MAIN(tst_ScriptedTree)
#include "tst_scripted_tree.moc"
