#include "indented_items.h"

#include <controls/tree_cursor.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QtTest>

#include <random>

using editor::TreeCursor;
using editor::TreeRows;

namespace {

const QStringList sample{"boats", "  barge", "  sails", "    jib", "    spinnaker", "canal", "  weir", "quay"};

/// The rows as they show, indented by their level, with + and - for closed and open branches.
QStringList shown(const TreeRows& rows)
{
    QStringList lines;
    for (int row = 0; row < rows.rowCount(); ++row) {
        const QModelIndex index = rows.index(row, 0);
        const QString indent(2 * index.data(TreeRows::LevelRole).toInt(), QLatin1Char(' '));
        const char* sign = !index.data(TreeRows::IsExpandableRole).toBool() ? ""
                           : index.data(TreeRows::IsExpandedRole).toBool()  ? "- "
                                                                          : "+ ";
        lines << indent + QLatin1String(sign) + index.data().toString();
    }
    return lines;
}

int rowOf(const TreeRows& rows, const QString& name)
{
    const QModelIndexList found = rows.match(rows.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    return found.isEmpty() ? -1 : found.constFirst().row();
}

/// A tree under a filter by name, and its rows.
struct Stack
{
    explicit Stack(const QStringList& lines = sample)
    {
        fillIndented(source, lines);
        filter.setRecursiveFilteringEnabled(true);
        filter.setSourceModel(&source);
        rows.setSourceModel(&filter);
    }

    QString current() const { return rows.index(cursor.row(), 0).data().toString(); }
    void go(const QString& name) { cursor.setRow(rowOf(rows, name)); }
    void filterBy(const QString& text)
    {
        cursor.followFilter(!text.isEmpty());
        filter.setFilterFixedString(text);
    }

    QStandardItemModel source;
    QSortFilterProxyModel filter;
    TreeRows rows{Qt::DisplayRole};
    TreeCursor cursor{rows};
    QAbstractItemModelTester tester{&rows, QAbstractItemModelTester::FailureReportingMode::QtTest};
};

} // namespace

class tst_TreeRows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyTheTopRowsShowAtFirst()
    {
        const Stack stack;

        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "+ canal", "quay"}));
    }

    void toggleOpensOneBranchAndClosesItAgain()
    {
        Stack stack;

        stack.rows.toggle(0);
        const QStringList opened = shown(stack.rows);
        stack.rows.toggle(0);

        QCOMPARE(opened, (QStringList{"- boats", "  barge", "  + sails", "+ canal", "quay"}));
        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "+ canal", "quay"}));
    }

    void toggleOfARowWithoutChildrenChangesNothing()
    {
        Stack stack;

        stack.rows.toggle(2);

        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "+ canal", "quay"}));
    }

    void aBranchReopensWithWhatWasOpenInIt()
    {
        Stack stack;
        stack.rows.expandAll();

        stack.rows.toggle(0);
        stack.rows.toggle(0);

        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  barge", "  - sails", "    jib", "    spinnaker",
                                                 "- canal", "  weir", "quay"}));
    }

    void expandAllOpensEveryBranch()
    {
        Stack stack;

        stack.rows.expandAll();

        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  barge", "  - sails", "    jib", "    spinnaker",
                                                 "- canal", "  weir", "quay"}));
    }

    void collapseAllClosesEveryBranch()
    {
        Stack stack;
        stack.rows.expandAll();

        stack.rows.collapseAll();
        stack.rows.toggle(0);

        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  barge", "  + sails", "+ canal", "quay"}));
    }

    void collapseAllMovesTheCurrentRowToItsTopBranch()
    {
        Stack stack;
        stack.rows.expandAll();
        stack.go("jib");

        stack.rows.collapseAll();

        QCOMPARE(stack.current(), QString("boats"));
    }

    void closingABranchMakesItCurrentInPlaceOfARowInside()
    {
        Stack stack;
        stack.rows.expandAll();
        stack.go("jib");

        stack.rows.toggle(rowOf(stack.rows, "boats"));

        QCOMPARE(stack.current(), QString("boats"));
    }

    void aFilterOpensWhatItFinds()
    {
        Stack stack;

        stack.filterBy("jib");

        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  - sails", "    jib"}));
    }

    void aBranchClosedDuringAFilterStaysClosedWhileItChanges()
    {
        Stack stack;
        stack.filterBy("i");
        stack.rows.toggle(rowOf(stack.rows, "sails"));

        stack.filterBy("jib");

        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  + sails"}));
    }

    void theEndOfAFilterBringsBackWhatWasOpen()
    {
        Stack stack;
        stack.rows.toggle(1);

        stack.filterBy("jib");
        stack.filterBy("");

        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "- canal", "  weir", "quay"}));
    }

    void whatWasChosenDuringAFilterStaysInSightWhenItEnds()
    {
        Stack stack;
        stack.filterBy("jib");
        stack.go("jib");

        stack.filterBy("");

        QCOMPARE(stack.current(), QString("jib"));
        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  barge", "  - sails", "    jib", "    spinnaker",
                                                 "+ canal", "quay"}));
    }

    void theCurrentRowIsNoneWhileItIsFilteredOutAndThenComesBack()
    {
        Stack stack;
        stack.go("quay");

        stack.filterBy("jib");
        const int during = stack.cursor.row();
        stack.filterBy("");

        QCOMPARE(during, -1);
        QCOMPARE(stack.current(), QString("quay"));
    }

    void theCurrentRowFollowsItsItemWhenTheRowsAreSorted()
    {
        Stack stack;
        stack.go("quay");
        QSignalSpy moved(&stack.cursor, &TreeCursor::rowChanged);

        stack.filter.sort(0, Qt::DescendingOrder);

        QCOMPARE(shown(stack.rows), (QStringList{"quay", "+ canal", "+ boats"}));
        QCOMPARE(stack.cursor.row(), 0);
        QCOMPARE(moved.size(), 1);
    }

    void openBranchesStayOpenWhenTheRowsAreSorted()
    {
        Stack stack;
        stack.rows.toggle(1);

        stack.filter.sort(0, Qt::DescendingOrder);

        QCOMPARE(shown(stack.rows), (QStringList{"quay", "- canal", "  weir", "+ boats"}));
    }

    void openBranchesAndTheCurrentRowOutliveAReset()
    {
        Stack stack;
        stack.rows.toggle(1);
        stack.go("weir");

        stack.source.clear();
        fillIndented(stack.source, sample);

        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "- canal", "  weir", "quay"}));
        QCOMPARE(stack.current(), QString("weir"));
    }

    void aSourceThatDiesLeavesNoRows()
    {
        auto source = std::make_unique<QStandardItemModel>();
        fillIndented(*source, sample);
        TreeRows rows(Qt::DisplayRole);
        TreeCursor cursor(rows);
        rows.setSourceModel(source.get());
        cursor.setRow(2);

        source.reset();

        QCOMPARE(rows.rowCount(), 0);
        QCOMPARE(cursor.row(), -1);
        QVERIFY(!rows.sourceModel());
    }

    void rowsOutOfRangeAreNobodys()
    {
        Stack stack;

        stack.rows.toggle(-1);
        stack.rows.toggle(99);
        stack.cursor.setRow(99);

        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "+ canal", "quay"}));
        QCOMPARE(stack.cursor.row(), -1);
        QCOMPARE(stack.rows.keyOf(99), QString());
    }

    void revealOpensWhatLeadsToARow()
    {
        Stack stack;

        stack.cursor.reveal(stack.filter.match(stack.filter.index(0, 0), Qt::DisplayRole, "jib", 1,
                                             Qt::MatchExactly | Qt::MatchRecursive).constFirst());

        QCOMPARE(stack.current(), QString("jib"));
        QCOMPARE(shown(stack.rows), (QStringList{"- boats", "  barge", "  - sails", "    jib", "    spinnaker",
                                                 "+ canal", "quay"}));
    }

    void keysMoveTheCurrentRow_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("to");

        // boats, barge, sails, jib, spinnaker, canal, weir, quay; a page has three rows
        QTest::newRow("down") << "barge" << int(Qt::Key_Down) << "sails";
        QTest::newRow("down at the end") << "quay" << int(Qt::Key_Down) << "quay";
        QTest::newRow("down without a current row") << "" << int(Qt::Key_Down) << "boats";
        QTest::newRow("up") << "barge" << int(Qt::Key_Up) << "boats";
        QTest::newRow("up at the start") << "boats" << int(Qt::Key_Up) << "boats";
        QTest::newRow("page down") << "barge" << int(Qt::Key_PageDown) << "spinnaker";
        QTest::newRow("page down near the end") << "weir" << int(Qt::Key_PageDown) << "quay";
        QTest::newRow("page up") << "weir" << int(Qt::Key_PageUp) << "jib";
        QTest::newRow("page up near the start") << "barge" << int(Qt::Key_PageUp) << "boats";
        QTest::newRow("home") << "weir" << int(Qt::Key_Home) << "boats";
        QTest::newRow("end") << "barge" << int(Qt::Key_End) << "quay";
        QTest::newRow("left goes from a leaf to its branch") << "jib" << int(Qt::Key_Left) << "sails";
        QTest::newRow("left stays on a leaf at the top") << "quay" << int(Qt::Key_Left) << "quay";
        QTest::newRow("right goes into an open branch") << "sails" << int(Qt::Key_Right) << "jib";
        QTest::newRow("right stays on a leaf") << "jib" << int(Qt::Key_Right) << "jib";
    }
    void keysMoveTheCurrentRow()
    {
        QFETCH(QString, from);
        QFETCH(int, key);
        Stack stack;
        stack.rows.expandAll();
        stack.go(from);

        const bool isUsed = stack.cursor.navigate(key, 3);

        QVERIFY(isUsed);
        QTEST(stack.current(), "to");
    }

    void leftClosesAnOpenBranchAndRightOpensItAgain()
    {
        Stack stack;
        stack.rows.toggle(1);
        stack.go("canal");

        stack.cursor.navigate(Qt::Key_Left, 3);
        const QStringList closed = shown(stack.rows);
        stack.cursor.navigate(Qt::Key_Right, 3);

        QCOMPARE(closed, (QStringList{"+ boats", "+ canal", "quay"}));
        QCOMPARE(shown(stack.rows), (QStringList{"+ boats", "- canal", "  weir", "quay"}));
        QCOMPARE(stack.current(), QString("canal"));
    }

    void keysThatMeanNothingAreLeftToOthers()
    {
        Stack stack;

        QVERIFY(!stack.cursor.navigate(Qt::Key_A, 3));
    }

    void keysInAnEmptyListChangeNothing_data()
    {
        QTest::addColumn<int>("key");

        QTest::newRow("down") << int(Qt::Key_Down);
        QTest::newRow("up") << int(Qt::Key_Up);
        QTest::newRow("end") << int(Qt::Key_End);
        QTest::newRow("page down") << int(Qt::Key_PageDown);
        QTest::newRow("left") << int(Qt::Key_Left);
        QTest::newRow("right") << int(Qt::Key_Right);
        QTest::newRow("return") << int(Qt::Key_Return);
    }
    void keysInAnEmptyListChangeNothing()
    {
        QFETCH(int, key);
        Stack stack{QStringList()};

        stack.cursor.navigate(key, 3);

        QCOMPARE(stack.cursor.row(), -1);
    }

    void rowsOfARandomWalkAreThoseOfAFreshStack();
};

// Toggles, filters, sorts and changes of the source; after each the rows are those of a list made anew whose branches
// were opened one by one.
void tst_TreeRows::rowsOfARandomWalkAreThoseOfAFreshStack()
{
    std::mt19937 random(7);
    const auto below = [&random](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    QStringList lines;
    for (int i = 0; i < 60; ++i)
        lines << QString(2 * qMin(i % 4, i), QLatin1Char(' ')) + QString("n%1").arg(i);
    Stack stack(lines);

    for (int step = 0; step < 400; ++step) {
        switch (below(6)) {
        case 0: stack.filterBy(QString::number(below(10))); break;
        case 1: stack.filterBy(QString()); break;
        case 2: stack.filter.sort(0, below(2) ? Qt::AscendingOrder : Qt::DescendingOrder); break;
        case 3:
            stack.source.item(below(stack.source.rowCount()))->appendRow(new QStandardItem(QString("m%1").arg(step)));
            break;
        default: stack.rows.toggle(below(qMax(1, stack.rows.rowCount())));
        }

        TreeRows fresh(Qt::DisplayRole);
        fresh.setSourceModel(&stack.filter);
        for (int row = 0; row < fresh.rowCount(); ++row) {
            if (stack.rows.isOpen(stack.rows.mapFromSource(fresh.mapToSource(fresh.index(row, 0))).row()))
                fresh.toggle(row);
        }
        QCOMPARE(shown(stack.rows), shown(fresh));
    }
}

QTEST_GUILESS_MAIN(tst_TreeRows)
#include "tst_tree_rows.moc"
