#include <datamodels/graph/edge_creation_requestor.h>
#include <datamodels/graph/vertex_creation_requestor.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringListModel>
#include <QtTest>

#include <type_traits>

using datamodels::EdgeCreationRequestor;
using datamodels::PrimitiveCreationRequestor;
using datamodels::Vertex;
using datamodels::VertexCreationRequestor;

namespace {

/// How a plug-in fills its palette.
class Palette : public VertexCreationRequestor
{
public:
    Palette() { m_items << new Item{7, "Start"} << new Item{9, "Ende äöü"}; }
};

} // namespace

class tst_CreationRequestors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBaseIsAbstract() { QVERIFY(std::is_abstract_v<PrimitiveCreationRequestor>); }

    void aRequestorWithoutItemsHasNoRows()
    {
        const VertexCreationRequestor vertices;
        const EdgeCreationRequestor edges;

        QCOMPARE(vertices.rowCount(), 0);
        QCOMPARE(edges.rowCount(), 0);
    }

    void itemsAreRowsOfAFlatList()
    {
        const Palette palette;

        QCOMPARE(palette.rowCount(), 2);
        QCOMPARE(palette.rowCount(palette.index(0)), 0);
    }

    void anItemHasItsNumberAndItsLabel()
    {
        const Palette palette;

        QCOMPARE(palette.roleNames(), (QHash<int, QByteArray>{{256, "itemID"}, {257, "itemLabel"}}));
        QCOMPARE(palette.index(0).data(256), QVariant(7));
        QCOMPARE(palette.index(0).data(257), QVariant("Start"));
        QCOMPARE(palette.index(1).data(257), QVariant(QString::fromUtf8("Ende äöü")));
    }

    void everythingElseHasNoData()
    {
        const Palette palette;

        QVERIFY(!palette.index(0).data(Qt::DisplayRole).isValid());
        QVERIFY(!palette.data(QModelIndex(), 256).isValid());
    }

    void anIndexOfAnotherModelPastTheItemsHasNoData()
    {
        const Palette palette;
        const QStringListModel other({"a", "b", "c"});

        QVERIFY(!palette.data(other.index(2), 256).isValid());
    }

    void aRequestIsMadeOnlyFromOutside()
    {
        VertexCreationRequestor requestor;
        QSignalSpy requests(&requestor, &VertexCreationRequestor::requestVertexCreation);
        QCOMPARE(requests.size(), 0);

        Q_EMIT requestor.requestVertexCreation(7, 1.5, 2.5);

        QCOMPARE(requests.takeFirst(), (QVariantList{7, 1.5, 2.5}));
        QCOMPARE(requestor.rowCount(), 0);
    }

    void anEdgeIsRequestedBetweenTwoVertices()
    {
        EdgeCreationRequestor requestor;
        Vertex from;
        Vertex to;
        QSignalSpy requests(&requestor, &EdgeCreationRequestor::requestEdgeCreation);

        Q_EMIT requestor.requestEdgeCreation(&from, &to);

        QCOMPARE(requests.size(), 1);
        QCOMPARE(requests[0][0].value<Vertex*>(), &from);
        QCOMPARE(requests[0][1].value<Vertex*>(), &to);
    }

    void aPaletteFollowsTheRulesOfItemModels()
    {
        Palette palette;

        QAbstractItemModelTester tester(&palette, QAbstractItemModelTester::FailureReportingMode::QtTest);
    }
};

QTEST_GUILESS_MAIN(tst_CreationRequestors)
#include "tst_creation_requestors.moc"
