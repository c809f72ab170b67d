#include <datamodels/qml_registration.h>

#include <host/base/date_time.h>
#include <support/log_capture.h>

#include <QFileInfo>
#include <QItemSelection>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQmlParserStatus>
#include <QQuickItem>
#include <QtTest>

#include <memory>

using datamodels::creatable;
using datamodels::registerQmlTypes;

/// Writes down what it lives through.
class Witness : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int value MEMBER m_value NOTIFY valueChanged)

public:
    ~Witness() override { events.append("destroyed"); }
    static inline QStringList events;

Q_SIGNALS:
    void valueChanged();

protected:
    void disconnectNotify(const QMetaMethod& signal) override
    {
        events.append("no one hears " + signal.name());
    }

private:
    int m_value = 3;
};

class Parsed : public QObject, public QQmlParserStatus
{
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)

public:
    void classBegin() override { events.append("begin"); }
    void componentComplete() override { events.append("complete"); }
    static inline QStringList events;
};

class Plain : public QObject
{
    Q_OBJECT
};

namespace {

std::unique_ptr<QObject> create(QQmlEngine& engine, const QByteArray& qml)
{
    QQmlComponent component(&engine);
    component.setData(qml, QUrl());
    return std::unique_ptr<QObject>(component.create());
}

} // namespace

class tst_QmlRegistration : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        registerQmlTypes({creatable<Witness>("Test.Registration", "Witness"),
                          creatable<Parsed>("Test.Registration", "Parsed")});
    }
    void init()
    {
        Witness::events.clear();
        Parsed::events.clear();
    }

    void qmlMakesAWrapperAroundTheClass()
    {
        QQmlEngine engine;

        const std::unique_ptr<QObject> object = create(engine, "import Test.Registration 1.0\nWitness {}");

        QVERIFY(object);
        QVERIFY(dynamic_cast<QQmlPrivate::QQmlElement<Witness>*>(object.get()));
    }

    void qmlDeletesWhatItMakes()
    {
        QQmlEngine engine;
        auto object = create(engine, "import QtQml 2.15\nimport Test.Registration 1.0\n"
                                     "QtObject { property QtObject made: Witness {} }");
        QVERIFY(object);

        object.reset();

        QCOMPARE(Witness::events, QStringList{"destroyed"});
    }

    void theDestructionHookRunsWhileTheObjectIsStillItself()
    {
        QQmlEngine engine;
        const auto object = create(engine, "import QtQml 2.15\nimport Test.Registration 1.0\n"
                                           "QtObject {\n"
                                           "    property QtObject made: Witness {}\n"
                                           "    property int copy: made ? made.value : 0\n"
                                           "}");
        QVERIFY(object);
        QCOMPARE(object->property("copy"), QVariant(3));

        delete object->property("made").value<QObject*>();

        // Without the hook the binding would be cut after `Witness` is gone, and this class would not be
        // told.
        QCOMPARE(Witness::events, (QStringList{"no one hears valueChanged", "destroyed"}));
    }

    void aClassThatAsksForItHearsOfItsCompletion()
    {
        QQmlEngine engine;

        const auto object = create(engine, "import Test.Registration 1.0\nParsed {}");

        QVERIFY(object);
        QCOMPARE(Parsed::events, (QStringList{"begin", "complete"}));
    }

    void aRowThatQmlRefusesStaysUnknownAndTheOthersAreRegistered()
    {
        LogCapture log;

        registerQmlTypes(
            {creatable<Plain>("Test.Refused", "lowercase"), creatable<Plain>("Test.Refused", "Plain")});

        QCOMPARE(log.qtMessages(), QStringList{"warning Invalid QML element name \"lowercase\"; type names "
                                               "must begin with an uppercase letter"});
        QQmlEngine engine;
        QVERIFY(create(engine, "import Test.Refused 1.0\nPlain {}"));
        QVERIFY(!create(engine, "import Test.Refused 1.0\nlowercase {}"));
    }

    void aMetaTypeHasItsExactName_data()
    {
        QTest::addColumn<int>("id");
        QTest::addColumn<QByteArray>("name");

        QTest::newRow("date and time")
            << qMetaTypeId<Ozy::DateTimeUtils::DateTime>() << QByteArray("Ozy::DateTimeUtils::DateTime");
        QTest::newRow("selection") << qMetaTypeId<QItemSelection>() << QByteArray("QItemSelection");
        QTest::newRow("file information") << qMetaTypeId<QFileInfo>() << QByteArray("QFileInfo");
        QTest::newRow("layout hint") << qMetaTypeId<QAbstractItemModel::LayoutChangeHint>()
                                     << QByteArray("QAbstractItemModel::LayoutChangeHint");
        QTest::newRow("strings") << qMetaTypeId<QVector<QString>>() << QByteArray("QVector<QString>");
        QTest::newRow("indexes") << qMetaTypeId<QList<QPersistentModelIndex>>()
                                 << QByteArray("QList<QPersistentModelIndex>");
        QTest::newRow("model") << qMetaTypeId<QAbstractItemModel*>() << QByteArray("QAbstractItemModel*");
        QTest::newRow("list model") << qMetaTypeId<QAbstractListModel*>()
                                    << QByteArray("QAbstractListModel*");
        QTest::newRow("selection model")
            << qMetaTypeId<QItemSelectionModel*>() << QByteArray("QItemSelectionModel*");
        QTest::newRow("object") << qMetaTypeId<QObject*>() << QByteArray("QObject*");
        QTest::newRow("item") << qMetaTypeId<QQuickItem*>() << QByteArray("QQuickItem*");
    }

    void aMetaTypeHasItsExactName()
    {
        QFETCH(int, id);
        QFETCH(QByteArray, name);

        QCOMPARE(QByteArray(QMetaType::typeName(id)), name);
        QCOMPARE(QMetaType::type(name), id);
    }

    void sequencesCanBeIterated()
    {
        const QVariant strings = QVariant::fromValue(QVector<QString>{"a", "b"});
        const QVariant indexes = QVariant::fromValue(QList<QPersistentModelIndex>{{}});

        QVERIFY(strings.canConvert<QVariantList>());
        QCOMPARE(strings.value<QSequentialIterable>().at(1), QVariant("b"));
        QVERIFY(indexes.canConvert<QVariantList>());
        QCOMPARE(indexes.value<QSequentialIterable>().size(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_QmlRegistration)
#include "tst_qml_registration.moc"
