#include <datamodels/helpers/qt_grid_view_selector.h>

#include <support/log_capture.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>

#include <QQmlContext>
#include <QQuickItem>
#include <QQuickView>
#include <QtTest>

namespace {

/// Anything with the right properties serves as a grid.
class PlainGrid : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double cellWidth MEMBER cellWidth)
    Q_PROPERTY(bool keyNavigationEnabled MEMBER keyNavigationEnabled)
    Q_PROPERTY(bool keyNavigationWraps MEMBER keyNavigationWraps)
    Q_PROPERTY(int currentIndex MEMBER currentIndex)
    Q_PROPERTY(QQuickItem* contentItem READ content CONSTANT)

public:
    explicit PlainGrid(int columns) { item.setWidth(columns * cellWidth + 5); }

    QQuickItem* content() { return &item; }
    bool press(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        return QCoreApplication::sendEvent(this, &event);
    }

    double cellWidth = 10;
    bool keyNavigationEnabled = true;
    bool keyNavigationWraps = false;
    int currentIndex = -7;
    QQuickItem item;
};

/// A grid whose content is an object to whoever asks.
class LooseGrid : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double cellWidth READ cellWidth CONSTANT)
    Q_PROPERTY(bool keyNavigationEnabled READ keyNavigationEnabled CONSTANT)
    Q_PROPERTY(QObject* contentItem READ contentItem CONSTANT)

public:
    explicit LooseGrid(QObject* content) : m_content(content) {}

    double cellWidth() const { return 10; }
    bool keyNavigationEnabled() const { return true; }
    QObject* contentItem() const { return m_content; }

private:
    QObject* m_content;
};

QStringList numbered(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names << QString::number(i);
    return names;
}

QString selectedRows(const QItemSelectionModel& selection)
{
    QModelIndexList indexes = selection.selectedIndexes();
    std::sort(indexes.begin(), indexes.end());
    QStringList rows;
    for (const QModelIndex& index : indexes)
        rows << QString::number(index.row());
    return rows.join(' ');
}

} // namespace

class tst_QtGridViewSelector : public QObject
{
    Q_OBJECT

    ScriptedTree* list = nullptr;
    QItemSelectionModel* selection = nullptr;
    QtGridViewSelector* selector = nullptr;

    void setCurrent(int row) { selection->setCurrentIndex(list->index(row, 0), QItemSelectionModel::ClearAndSelect); }

private Q_SLOTS:
    void init()
    {
        list = new ScriptedTree(numbered(10));
        selection = new QItemSelectionModel(list, list);
        selector = new QtGridViewSelector(list);
        selector->setSelection(selection);
    }
    void cleanup() { delete list; }

    void anArrowMovesInTheGrid_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("wraps");
        QTest::addColumn<int>("to");

        // Ten rows in four columns: 0-3, 4-7, 8-9.
        QTest::newRow("left") << 5 << int(Qt::Key_Left) << false << 4;
        QTest::newRow("right") << 5 << int(Qt::Key_Right) << false << 6;
        QTest::newRow("up") << 5 << int(Qt::Key_Up) << false << 1;
        QTest::newRow("down") << 5 << int(Qt::Key_Down) << false << 9;
        QTest::newRow("left end stays") << 4 << int(Qt::Key_Left) << false << 4;
        QTest::newRow("right end stays") << 7 << int(Qt::Key_Right) << false << 7;
        QTest::newRow("top stays") << 2 << int(Qt::Key_Up) << false << 2;
        QTest::newRow("last line stays") << 9 << int(Qt::Key_Down) << false << 9;
        QTest::newRow("left wraps in its line") << 4 << int(Qt::Key_Left) << true << 7;
        QTest::newRow("right wraps in its line") << 7 << int(Qt::Key_Right) << true << 4;
        QTest::newRow("up wraps in its column") << 1 << int(Qt::Key_Up) << true << 9;
        QTest::newRow("down wraps in its column") << 9 << int(Qt::Key_Down) << true << 1;
    }

    void anArrowMovesInTheGrid()
    {
        QFETCH(int, from);
        QFETCH(int, key);
        QFETCH(bool, wraps);
        QFETCH(int, to);
        PlainGrid grid(4);
        grid.keyNavigationWraps = wraps;
        selector->setTarget(&grid);
        setCurrent(from);

        grid.press(key);

        QCOMPARE(selection->currentIndex().row(), to);
        QCOMPARE(selectedRows(*selection), QString::number(to));
        QCOMPARE(grid.currentIndex, to);
    }

    void aMoveOntoAFreeCellClears_data()
    {
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("key");
        QTest::newRow("right of the last row") << 9 << int(Qt::Key_Right);
        QTest::newRow("below a full line") << 6 << int(Qt::Key_Down);
    }

    void aMoveOntoAFreeCellClears()
    {
        QFETCH(int, from);
        QFETCH(int, key);
        PlainGrid grid(4);
        selector->setTarget(&grid);
        setCurrent(from);

        grid.press(key);

        QVERIFY(!selection->currentIndex().isValid());
        QCOMPARE(selectedRows(*selection), QString());
        QCOMPARE(grid.currentIndex, -1);
    }

    void withoutACurrentRowAnArrowStartsAtAnEnd_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("row");
        QTest::newRow("left") << int(Qt::Key_Left) << 9;
        QTest::newRow("up") << int(Qt::Key_Up) << 9;
        QTest::newRow("right") << int(Qt::Key_Right) << 0;
        QTest::newRow("down") << int(Qt::Key_Down) << 0;
    }

    void withoutACurrentRowAnArrowStartsAtAnEnd()
    {
        QFETCH(int, key);
        QFETCH(int, row);
        PlainGrid grid(4);
        selector->setTarget(&grid);

        grid.press(key);

        QCOMPARE(selection->currentIndex().row(), row);
    }

    void withoutRowsAnArrowClears()
    {
        PlainGrid grid(4);
        selector->setTarget(&grid);
        setCurrent(3);
        list->reset({});

        QVERIFY(grid.press(Qt::Key_Right));

        QVERIFY(!selection->currentIndex().isValid());
    }

    void aGridNarrowerThanACellIsOneColumn_data()
    {
        QTest::addColumn<double>("cellWidth");
        QTest::newRow("narrow") << 1000.0;
        QTest::newRow("cells without width") << -1.0;
        QTest::newRow("not a number") << qQNaN();
    }

    void aGridNarrowerThanACellIsOneColumn()
    {
        QFETCH(double, cellWidth);
        PlainGrid grid(4);
        grid.cellWidth = cellWidth;
        selector->setTarget(&grid);
        setCurrent(3);

        grid.press(Qt::Key_Down);

        QCOMPARE(selection->currentIndex().row(), 4);
    }

    void cellsOfNoWidthMakeOneLine()
    {
        PlainGrid grid(4);
        grid.cellWidth = 0;
        selector->setTarget(&grid);
        setCurrent(3);

        grid.press(Qt::Key_Down);
        QCOMPARE(selection->currentIndex().row(), 3);

        grid.press(Qt::Key_Right);
        QCOMPARE(selection->currentIndex().row(), 4);
    }

    void theContentMayBeKnownAsAnObjectOnly()
    {
        QQuickItem content;
        content.setWidth(40);
        LooseGrid grid(&content);
        selector->setTarget(&grid);
        setCurrent(1);
        QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);

        QCoreApplication::sendEvent(&grid, &down);

        QCOMPARE(selection->currentIndex().row(), 5);
    }

    void arrowsAreTakenFromTheViewAndOtherKeysLeft()
    {
        PlainGrid grid(4);
        selector->setTarget(&grid);

        QVERIFY(grid.press(Qt::Key_Right));
        QVERIFY(!grid.press(Qt::Key_Home));
        QVERIFY(!grid.press(Qt::Key_PageUp));
    }

    void arrowsAreLeftWhileTheViewWantsNone()
    {
        PlainGrid grid(4);
        grid.keyNavigationEnabled = false;
        selector->setTarget(&grid);

        QVERIFY(!grid.press(Qt::Key_Right));

        QVERIFY(!selection->currentIndex().isValid());
    }

    void arrowsAreLeftWithoutASelection()
    {
        PlainGrid grid(4);
        selector->setTarget(&grid);
        selector->setSelection(nullptr);

        QVERIFY(!grid.press(Qt::Key_Right));
    }

    void aTargetThatIsNoGridGetsNoKeysButPressesSelect()
    {
        QObject target;
        selector->setTarget(&target);
        QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);

        QCoreApplication::sendEvent(&target, &right);
        QVERIFY(!selection->currentIndex().isValid());

        selector->pressed(2);
        QCOMPARE(selectedRows(*selection), QString("2"));
        QVERIFY(!target.property("currentIndex").isValid());
    }

    void aFormerTargetIsLeftAlone()
    {
        PlainGrid before(4);
        PlainGrid now(4);
        selector->setTarget(&before);
        selector->setTarget(&now);

        QVERIFY(!before.press(Qt::Key_Right));
        setCurrent(3);

        QCOMPARE(before.currentIndex, -1);
        QCOMPARE(now.currentIndex, 3);
    }

    void aPressSelectsTheRowAlone()
    {
        setCurrent(3);

        selector->pressed(5);

        QCOMPARE(selectedRows(*selection), QString("5"));
        QCOMPARE(selection->currentIndex().row(), 5);
    }

    void aPressOutsideTheRowsClears()
    {
        setCurrent(3);

        selector->pressed(-1);

        QCOMPARE(selectedRows(*selection), QString());
        QVERIFY(!selection->currentIndex().isValid());
    }

    void aPressPastTheRowsClearsToo()
    {
        setCurrent(3);

        selector->pressed(99);

        QCOMPARE(selectedRows(*selection), QString());
        QVERIFY(!selection->currentIndex().isValid());
    }

    void aSelectionWithoutAModelIsLeftAlone()
    {
        QItemSelectionModel empty;
        selector->setSelection(&empty);

        selector->pressed(0);

        QVERIFY(!empty.hasSelection());
    }

    void anUnknownModeFailsAnAssertionAndMovesTheCurrentRow()
    {
        selector->setSelectionMode(static_cast<QtGridViewSelector::SelectionMode>(7));
        LogCapture log;

        selector->pressed(4);

        QCOMPARE(log.assertions(), QStringList{"false"});
        QCOMPARE(selectedRows(*selection), QString());
        QCOMPARE(selection->currentIndex().row(), 4);
    }

    void theViewFollowsTheCurrentRow()
    {
        PlainGrid grid(4);

        selector->setTarget(&grid);
        QCOMPARE(grid.currentIndex, -1);

        setCurrent(6);
        QCOMPARE(grid.currentIndex, 6);
    }

    void aFormerSelectionIsNotFollowed()
    {
        PlainGrid grid(4);
        QItemSelectionModel other(list);
        other.setCurrentIndex(list->index(2, 0), QItemSelectionModel::NoUpdate);
        selector->setTarget(&grid);

        selector->setSelection(&other);
        QCOMPARE(grid.currentIndex, 2);

        setCurrent(6);
        QCOMPARE(grid.currentIndex, 2);
    }

    void settersTellChangesOnly()
    {
        PlainGrid grid(4);
        SignalLog log;
        log.addAll(*selector);

        selector->setTarget(&grid);
        selector->setTarget(&grid);
        selector->setSelection(nullptr);
        selector->setSelection(nullptr);
        selector->setSelectionMode(QtGridViewSelector::SingleSelection);
        selector->setSelectionMode(QtGridViewSelector::SingleSelection);

        QCOMPARE(log.take(), (QStringList{"targetChanged()", "selectionChanged()", "selectionModeChanged()"}));
    }

    void targetAndSelectionMayDieFirst()
    {
        auto grid = std::make_unique<PlainGrid>(4);
        auto other = std::make_unique<QItemSelectionModel>(list);
        selector->setTarget(grid.get());
        selector->setSelection(other.get());

        grid.reset();
        other->setCurrentIndex(list->index(1, 0), QItemSelectionModel::NoUpdate);
        other.reset();
        selector->pressed(1);

        QCOMPARE(selector->target(), nullptr);
        QCOMPARE(selector->selection(), nullptr);
    }

    /// In a real view, with real modifiers.
    void keysAndModifiersSelectInAGridView_data()
    {
        QTest::addColumn<QtGridViewSelector::SelectionMode>("mode");
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("rows");
        const auto multi = QtGridViewSelector::MultiSelection;
        const auto single = QtGridViewSelector::SingleSelection;
        const Qt::KeyboardModifiers none = Qt::NoModifier;
        const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        const Qt::KeyboardModifiers control = Qt::ControlModifier;

        QTest::newRow("plain") << multi << int(Qt::Key_Right) << none << "6";
        QTest::newRow("shift adds the range") << multi << int(Qt::Key_Down) << shift << "5 6 7 8 9";
        QTest::newRow("control adds the row") << multi << int(Qt::Key_Up) << control << "1 5";
        QTest::newRow("control wins over shift") << multi << int(Qt::Key_Down) << (shift | control) << "5 9";
        QTest::newRow("single, plain") << single << int(Qt::Key_Right) << none << "6";
        QTest::newRow("single, shift is plain") << single << int(Qt::Key_Down) << shift << "9";
        QTest::newRow("single, control is plain on another row") << single << int(Qt::Key_Up) << control << "1";
    }

    void keysAndModifiersSelectInAGridView()
    {
        QFETCH(QtGridViewSelector::SelectionMode, mode);
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, rows);
        QQuickView view;
        showGrid(view);
        selector->setSelectionMode(mode);
        setCurrent(5);

        QTest::keyClick(&view, Qt::Key(key), modifiers);

        QCOMPARE(selectedRows(*selection), rows);
        QCOMPARE(view.rootObject()->property("currentIndex").toInt(), selection->currentIndex().row());
    }

    void controlOnTheSelectedRowClearsItInSingleSelection()
    {
        QQuickView view;
        showGrid(view);
        selector->setSelectionMode(QtGridViewSelector::SingleSelection);
        setCurrent(5);

        QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, QPoint(150, 150));

        QCOMPARE(selectedRows(*selection), QString());
        QCOMPARE(selection->currentIndex().row(), 5);
    }

    void aClickInAGridViewSelectsWithItsModifiers()
    {
        QQuickView view;
        showGrid(view);

        QTest::mouseClick(&view, Qt::LeftButton, Qt::NoModifier, QPoint(150, 50));
        QTest::mouseClick(&view, Qt::LeftButton, Qt::ShiftModifier, QPoint(350, 50));
        QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, QPoint(250, 50));

        QCOMPARE(selectedRows(*selection), QString("1 3"));
    }

private:
    /// Four columns of cells of 100 by 100.
    void showGrid(QQuickView& view)
    {
        view.rootContext()->setContextProperty("list", list);
        view.rootContext()->setContextProperty("selector", selector);
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.resize(410, 310);
        view.setSource(QUrl::fromLocalFile(GRID_QML));
        QVERIFY(view.rootObject());
        view.show();
        view.requestActivate(); // there may be no window manager that does it
        QVERIFY(QTest::qWaitForWindowActive(&view));
        selector->setTarget(view.rootObject());
        QVERIFY(view.rootObject()->hasActiveFocus());
    }
};

QTEST_MAIN(tst_QtGridViewSelector)
#include "tst_qt_grid_view_selector.moc"
