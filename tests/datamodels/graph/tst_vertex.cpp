#include <datamodels/graph/edge.h>
#include <datamodels/graph/vertex.h>

#include <QSignalSpy>
#include <QtTest>

#include <limits>

using datamodels::Edge;
using datamodels::Vertex;

namespace {

QStringList signalNames(const QMetaObject& type)
{
    QStringList names;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i) {
        if (type.method(i).methodType() == QMetaMethod::Signal)
            names << type.method(i).methodSignature();
    }
    return names;
}

QStringList propertyNames(const QMetaObject& type)
{
    QStringList names;
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
        names << type.property(i).name();
    return names;
}

/// The property signals of a vertex, in the order in which they came.
class RecordedVertex
{
public:
    explicit RecordedVertex(Vertex& vertex)
    {
        const auto plain = [this](const QString& what) { return [this, what] { entries << what; }; };
        QObject::connect(&vertex, &Vertex::labelChanged, &m_context,
                         [this](const QString& old) { entries << "label was " + old; });
        QObject::connect(&vertex, &Vertex::centerXChanged, &m_context, plain("x"));
        QObject::connect(&vertex, &Vertex::centerYChanged, &m_context, plain("y"));
        QObject::connect(&vertex, &Vertex::centerZChanged, &m_context, plain("z"));
        QObject::connect(&vertex, &Vertex::widthChanged, &m_context, plain("width"));
        QObject::connect(&vertex, &Vertex::heightChanged, &m_context, plain("height"));
    }

    QStringList entries;

private:
    QObject m_context;
};

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class tst_Vertex : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aVertexStartsAtTheOriginWithTheUsualSize()
    {
        const Vertex vertex;

        QCOMPARE(vertex.getLabel(), QString());
        QVERIFY(vertex.getCenterPosition() == (Ozy::Vector3{0, 0, 0}));
        QCOMPARE(vertex.getWidth(), 180.0);
        QCOMPARE(vertex.getHeight(), 32.0);
        QCOMPARE(vertex.parent(), nullptr);
    }

    void aVertexTakesWhatItIsMadeWith()
    {
        QObject owner;
        const auto* vertex = new Vertex("start", &owner, 20, 10);

        QCOMPARE(vertex->getLabel(), QString("start"));
        QCOMPARE(vertex->getWidth(), 20.0);
        QCOMPARE(vertex->getHeight(), 10.0);
        QCOMPARE(vertex->parent(), &owner);
    }

    void propertiesAndSignalsStandInTheirOrder()
    {
        QCOMPARE(propertyNames(Vertex::staticMetaObject),
                 (QStringList{"label", "centerX", "centerY", "centerZ", "width", "height"}));
        QCOMPARE(signalNames(Vertex::staticMetaObject),
                 (QStringList{"labelChanged(QString)", "centerXChanged()", "centerYChanged()",
                              "centerZChanged()", "widthChanged()", "heightChanged()",
                              "dragStarted(double,double)", "dragStopped(double,double)"}));
        QCOMPARE(propertyNames(Edge::staticMetaObject), (QStringList{"fromVertex", "toVertex"}));
        QCOMPARE(signalNames(Edge::staticMetaObject), QStringList());
    }

    void aNewLabelIsToldWithTheOldOne()
    {
        Vertex vertex("before");
        RecordedVertex record(vertex);

        vertex.setLabel("after");

        QCOMPARE(vertex.getLabel(), QString("after"));
        QCOMPARE(record.entries, (QStringList{"label was before"}));
    }

    void everyPropertyTellsOfItself()
    {
        Vertex vertex;
        RecordedVertex record(vertex);

        vertex.setProperty("centerX", 1.0);
        vertex.setProperty("centerY", 2.0);
        vertex.setProperty("centerZ", 3.0);
        vertex.setProperty("width", 4.0);
        vertex.setProperty("height", 5.0);

        QCOMPARE(record.entries, (QStringList{"x", "y", "z", "width", "height"}));
        QVERIFY(vertex.getCenterPosition() == (Ozy::Vector3{1, 2, 3}));
        QCOMPARE(vertex.property("width").toDouble(), 4.0);
        QCOMPARE(vertex.property("height").toDouble(), 5.0);
    }

    void equalValuesAreNotTold()
    {
        Vertex vertex("label");
        vertex.setCenterPosition({1, 2, 3});
        RecordedVertex record(vertex);

        vertex.setLabel("label");
        vertex.setCenterX(1);
        vertex.setCenterY(2);
        vertex.setCenterZ(3);
        vertex.setWidth(180);
        vertex.setHeight(32);
        vertex.setCenterPosition({1, 2, 3});

        QCOMPARE(record.entries, QStringList());
    }

    void notANumberNeverTakesEffect()
    {
        Vertex vertex;
        RecordedVertex record(vertex);

        vertex.setCenterX(notANumber);
        vertex.setCenterY(notANumber);
        vertex.setCenterZ(notANumber);
        vertex.setWidth(notANumber);
        vertex.setHeight(notANumber);
        vertex.setCenterPosition({static_cast<float>(notANumber), 0, 0});

        QVERIFY(vertex.getCenterPosition() == (Ozy::Vector3{0, 0, 0}));
        QCOMPARE(vertex.getWidth(), 180.0);
        QCOMPARE(vertex.getHeight(), 32.0);
        QCOMPARE(record.entries, QStringList());
    }

    void aCentreThatNoFloatHoldsIsToldEachTime()
    {
        Vertex vertex;
        RecordedVertex record(vertex);

        vertex.setCenterX(0.1);
        vertex.setCenterX(0.1);

        QCOMPARE(vertex.getCenterX(), static_cast<double>(0.1f));
        QCOMPARE(record.entries, (QStringList{"x", "x"}));
    }

    void aSizeIsKeptAsADouble()
    {
        Vertex vertex;
        RecordedVertex record(vertex);

        vertex.setWidth(0.1);
        vertex.setWidth(0.1);

        QCOMPARE(record.entries, (QStringList{"width"}));
    }

    void aPositionTellsOfTheAxesThatChangeInTheirOrder()
    {
        Vertex vertex;
        vertex.setCenterPosition({0, 5, 0});
        RecordedVertex record(vertex);

        vertex.setCenterPosition({1, 5, 2});

        QCOMPARE(record.entries, (QStringList{"x", "z"}));
    }

    void aValueIsStoredBeforeItIsTold()
    {
        Vertex vertex("before");
        QString seen;
        connect(&vertex, &Vertex::labelChanged, this, [&] { seen = vertex.getLabel(); });

        vertex.setLabel("after");

        QCOMPARE(seen, QString("after"));
    }

    void theBooksTellWhetherTheyChanged()
    {
        Vertex vertex;
        Edge edge(&vertex, &vertex, nullptr);

        QVERIFY(vertex.insertInEdge(&edge));
        QVERIFY(!vertex.insertInEdge(&edge));
        QVERIFY(vertex.eraseInEdge(&edge));
        QVERIFY(!vertex.eraseInEdge(&edge));
        QVERIFY(vertex.insertOutEdge(&edge));
        QVERIFY(!vertex.insertOutEdge(&edge));
        QVERIFY(vertex.eraseOutEdge(&edge));
        QVERIFY(!vertex.eraseOutEdge(&edge));
    }

    void anEdgeKnowsItsVerticesAndLeavesTheirBooksAlone()
    {
        Vertex from;
        Vertex to;
        const Edge edge(&from, &to, nullptr);

        QCOMPARE(edge.property("fromVertex").value<QObject*>(), &from);
        QCOMPARE(edge.property("toVertex").value<QObject*>(), &to);
        QCOMPARE(from.getOutEdgesCount(), std::size_t(0));
        QCOMPARE(to.getInEdgesCount(), std::size_t(0));
    }
};

QTEST_GUILESS_MAIN(tst_Vertex)
#include "tst_vertex.moc"
