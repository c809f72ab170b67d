#include <support/signal_log.h>

#include <QStandardItemModel>
#include <QtTest>

#include <stdexcept>
#include <thread>

using Parents = QList<QPersistentModelIndex>;

class Thing : public QObject
{
    Q_OBJECT

public:
    enum Colour
    {
        Red,
        Green
    };
    Q_ENUM(Colour)

    using QObject::QObject;

Q_SIGNALS:
    void done();
    void text(const QString& text);
    void many(int number, bool flag, const QVariant& any, const QStringList& texts);
    void object(QObject* object);
    void place(const QModelIndex& index);
    void colour(Thing::Colour colour);
    void opaque(void* pointer);
};

/// A model whose signals can be emitted from outside, whatever they say.
class LoudModel : public QStandardItemModel
{
    Q_OBJECT

public:
    using QStandardItemModel::beginMoveColumns;
    using QStandardItemModel::beginMoveRows;
    using QStandardItemModel::endMoveColumns;
    using QStandardItemModel::endMoveRows;
    using QStandardItemModel::QStandardItemModel;

Q_SIGNALS:
    void saved();
};

using Emission = std::function<void(Thing&)>;
Q_DECLARE_METATYPE(Emission)

class tst_SignalLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Thing::Colour>(); }

    void rowsAreInsertedAndRemoved()
    {
        QStandardItemModel model(2, 1);
        SignalLog log(model);

        model.insertRows(1, 3);
        model.removeRows(0, 2);

        QCOMPARE(log.take(), (QStringList{"inserting / [1..3]", "inserted / [1..3]", "removing / [0..1]",
                                          "removed / [0..1]"}));
    }

    void rowsBelowAParentNameItsPath()
    {
        QStandardItemModel model(2, 1);
        model.setItem(1, new QStandardItem);
        model.item(1)->appendRow(new QStandardItem);
        SignalLog log(model);

        model.removeRows(0, 1, model.index(1, 0));

        QCOMPARE(log.take(), (QStringList{"removing /1 [0..0]", "removed /1 [0..0]"}));
    }

    void aMoveNamesBothParents()
    {
        LoudModel model;
        model.appendRow(new QStandardItem);
        model.appendRow(new QStandardItem);
        model.item(0)->appendRow(new QStandardItem);
        model.item(1)->appendRow(new QStandardItem);
        SignalLog log(model);

        model.beginMoveRows(model.index(0, 0), 0, 0, model.index(1, 0), 1);
        model.endMoveRows();

        QCOMPARE(log.take(), (QStringList{"moving /0 [0..0] to /1 [1]", "moved /0 [0..0] to /1 [1]"}));
    }

    void columnsAreInsertedRemovedAndMoved()
    {
        LoudModel model(1, 3);
        SignalLog log(model);

        model.insertColumns(1, 1);
        model.removeColumns(1, 1);
        model.beginMoveColumns({}, 0, 0, {}, 3);
        model.endMoveColumns();

        QCOMPARE(log.take(),
                 (QStringList{"inserting columns / [1..1]", "inserted columns / [1..1]",
                              "removing columns / [1..1]", "removed columns / [1..1]",
                              "moving columns / [0..0] to / [3]", "moved columns / [0..0] to / [3]"}));
    }

    void aResetIsAPair()
    {
        QStandardItemModel model(2, 1);
        SignalLog log(model);

        model.clear();

        QCOMPARE(log.take(), (QStringList{"resetting", "reset"}));
    }

    void aLayoutChangeNamesItsParentsAndItsHint()
    {
        QStandardItemModel model(2, 1);
        SignalLog log(model);

        Q_EMIT model.layoutAboutToBeChanged();
        Q_EMIT model.layoutChanged(Parents{QPersistentModelIndex(), model.index(1, 0)},
                                   QAbstractItemModel::VerticalSortHint);
        Q_EMIT model.layoutChanged({}, QAbstractItemModel::HorizontalSortHint);

        QCOMPARE(log.take(), (QStringList{"layout changing", "layout changed /, /1 sorted rows",
                                          "layout changed sorted columns"}));
    }

    void changedDataNamesItsRangeAndItsRoles()
    {
        QStandardItemModel model(3, 2);
        SignalLog log(model);

        Q_EMIT model.dataChanged(model.index(0, 0), model.index(0, 0));
        Q_EMIT model.dataChanged(model.index(1, 0), model.index(2, 1), {0, 257});
        Q_EMIT model.dataChanged({}, {});

        QCOMPARE(log.take(), (QStringList{"changed /0", "changed /1 .. /2:1 roles 0,257", "changed /"}));
    }

    void headersNameTheirOrientation()
    {
        QStandardItemModel model(1, 2);
        SignalLog log(model);

        Q_EMIT model.headerDataChanged(Qt::Horizontal, 0, 1);
        Q_EMIT model.headerDataChanged(Qt::Vertical, 0, 0);

        QCOMPARE(log.take(), (QStringList{"header horizontal [0..1]", "header vertical [0..0]"}));
    }

    void severalModelsShareOneOrder()
    {
        QStandardItemModel source(2, 1);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(&source);
        proxy.rowCount();
        SignalLog log;
        log.add(source, "source").add(proxy, "proxy");

        source.insertRows(0, 1);

        QCOMPARE(log.take(), (QStringList{"source: inserting / [0..0]", "source: inserted / [0..0]",
                                          "proxy: inserting / [0..0]", "proxy: inserted / [0..0]"}));
    }

    void theCauseStandsBeforeTheEffectThatAnEarlierListenerEmits()
    {
        Thing cause;
        Thing effect;
        connect(&cause, &Thing::done, &effect, &Thing::done);
        SignalLog log;
        log.add(effect, &Thing::done, "effect").add(cause, &Thing::done, "cause");

        Q_EMIT cause.done();

        QCOMPARE(log.take(), (QStringList{"cause: done()", "effect: done()"}));
    }

    void aSignalIsLoggedWithItsArguments_data()
    {
        QTest::addColumn<Emission>("emission");
        QTest::addColumn<QString>("text");

        QTest::newRow("none") << Emission([](Thing& t) { Q_EMIT t.done(); }) << "done()";
        QTest::newRow("string") << Emission([](Thing& t) { Q_EMIT t.text("a b"); }) << "text(\"a b\")";
        QTest::newRow("several") << Emission([](Thing& t) {
            Q_EMIT t.many(3, true, 2.5, {"a", "b"});
        }) << "many(3, true, 2.5, [\"a\", \"b\"])";
        QTest::newRow("invalid") << Emission([](Thing& t) { Q_EMIT t.many(-1, false, {}, {}); })
                                 << "many(-1, false, invalid, [])";
        QTest::newRow("object") << Emission([](Thing& t) { Q_EMIT t.object(&t); }) << "object(Thing)";
        QTest::newRow("null object") << Emission([](Thing& t) { Q_EMIT t.object(nullptr); })
                                     << "object(null)";
        QTest::newRow("index") << Emission([](Thing& t) { Q_EMIT t.place({}); }) << "place(/)";
        QTest::newRow("enum") << Emission([](Thing& t) { Q_EMIT t.colour(Thing::Green); }) << "colour(Green)";
        QTest::newRow("opaque") << Emission([](Thing& t) { Q_EMIT t.opaque(&t); }) << "opaque(void*)";
    }

    void aSignalIsLoggedWithItsArguments()
    {
        QFETCH(Emission, emission);
        QFETCH(QString, text);
        Thing thing;
        SignalLog log;
        log.addAll(thing);

        emission(thing);

        QCOMPARE(log.take(), QStringList{text});
    }

    void aSignalCanBeNamedByItsText()
    {
        Thing thing;
        SignalLog log;
        log.addNamed(thing, "text(QString)");

        Q_EMIT thing.text("a");
        Q_EMIT thing.done();

        QCOMPARE(log.take(), QStringList{"text(\"a\")"});
    }

    void aSignalThatIsNotThereIsRefused()
    {
        Thing thing;
        SignalLog log;

        QVERIFY_EXCEPTION_THROWN(log.addNamed(thing, "gone()"), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(log.add(thing, &QObject::deleteLater), std::invalid_argument);
    }

    void addAllTakesTheModelsOwnSignalsToo()
    {
        LoudModel model(1, 1);
        SignalLog log;
        log.addAll(model);

        Q_EMIT model.saved();
        Q_EMIT model.headerDataChanged(Qt::Horizontal, 0, 0);

        QCOMPARE(log.take(), (QStringList{"saved()", "header horizontal [0..0]"}));
    }

    void whatIsNotAddedIsNotLogged()
    {
        LoudModel model(1, 1);
        LoudModel other(1, 1);
        SignalLog log(model);

        other.clear();
        Q_EMIT model.saved();

        QCOMPARE(log.take(), QStringList());
    }

    void blockedSignalsAreNotEmissions()
    {
        QStandardItemModel model(1, 1);
        SignalLog log(model);
        const QSignalBlocker blocker(model);

        model.clear();

        QCOMPARE(log.take(), QStringList());
    }

    void takeForgetsWhatItReturns()
    {
        QStandardItemModel model(1, 1);
        SignalLog log(model);
        model.clear();

        log.take();

        QCOMPARE(log.take(), QStringList());
    }

    void notesStandBetweenTheSignals()
    {
        Thing thing;
        SignalLog log;
        log.add(thing, &Thing::done);

        log.note("first");
        Q_EMIT thing.done();
        log.note("second");

        QCOMPARE(log.take(), (QStringList{"first", "done()", "second"}));
    }

    void severalLogsHearTheSameSignal()
    {
        Thing thing;
        SignalLog first;
        SignalLog second;
        first.add(thing, &Thing::done);
        second.add(thing, &Thing::done);

        Q_EMIT thing.done();

        QCOMPARE(first.take(), QStringList{"done()"});
        QCOMPARE(second.take(), QStringList{"done()"});
    }

    void aDestroyedObjectIsForgotten()
    {
        SignalLog log;
        std::aligned_storage_t<sizeof(Thing), alignof(Thing)> memory;
        auto* first = new (&memory) Thing;
        log.add(*first, &Thing::done).add(*first, &QObject::destroyed);
        first->~Thing();

        auto* second = new (&memory) Thing;
        Q_EMIT second->done();
        second->~Thing();

        QCOMPARE(log.take(), QStringList{"destroyed(QObject)"});
    }

    void signalsOfAnotherThreadAreLogged()
    {
        Thing thing;
        SignalLog log;
        log.add(thing, &Thing::done);

        std::thread([&thing] { Q_EMIT thing.done(); }).join();

        QCOMPARE(log.take(), QStringList{"done()"});
    }
};

QTEST_GUILESS_MAIN(tst_SignalLog)
#include "tst_signal_log.moc"
