#include "sample_assets.h"

#include <datamodels/asset_model.h>
#include <datamodels/scene_roles.h>

#include <support/signal_log.h>
#include <support/tree_lines.h>
#include <support/without_root_flags.h>

#include <QAbstractItemModelTester>
#include <QStringListModel>
#include <QtTest>

using namespace sample;
using zarn::reflect;

namespace {

/// An asset model without rows.
class EmptyAssets : public AssetModel
{
public:
    QModelIndex index(int, int, const QModelIndex&) const override { return {}; }
    QModelIndex parent(const QModelIndex&) const override { return {}; }
    int rowCount(const QModelIndex&) const override { return 0; }
    int columnCount(const QModelIndex&) const override { return 1; }
    QVariant data(const QModelIndex&, int) const override { return {}; }
    QModelIndex indexOf(const zarn::ReflectedObject&) override { return {}; }
    void updateHoverRole(const zarn::ReflectedObject&, bool) override {}
};

/// Qt's own names and the eight of scene rows.
QHash<int, QByteArray> allNames()
{
    QHash<int, QByteArray> names = QStringListModel().roleNames();
    names.insert({{356, "type"}, {357, "count"}, {358, "object"}, {359, "expanded"}, {360, "enabled"},
                  {361, "rowButtonsModel"}, {362, "hoverRole"}, {363, "modified"}});
    return names;
}

} // namespace

class tst_AssetModels : public QObject
{
    Q_OBJECT

    Boat boat;
    Vehicle car;
    Vehicle bus;

private Q_SLOTS:
    void roleNamesAreQtsOwnAndThoseOfSceneRows()
    {
        QCOMPARE(EmptyAssets().roleNames(), allNames());
        QCOMPARE(AssetTree().roleNames(), allNames());
    }

    void anAssetModelIsItsOwnItemModelAndMapsNothing()
    {
        EmptyAssets assets;
        AssetTree tree;
        tree.add(reflect(car), "car");

        QCOMPARE(assets.itemModel(), &assets);
        QCOMPARE(tree.itemModel(), &tree);
        QCOMPARE(tree.mapIndex(tree.index(0, 0)), tree.index(0, 0));
    }

    void aDoubleClickIsToldUntilTheConnectionEnds()
    {
        EmptyAssets assets;
        QList<QModelIndex> clicked;
        const ryk::Connection connection =
            assets.connectOnDoubleClicked([&](const QModelIndex& index) { clicked << index; });

        assets.onDoubleClicked(QModelIndex());
        QCOMPARE(clicked, QList<QModelIndex>{QModelIndex()});

        connection.disconnect();
        assets.onDoubleClicked(QModelIndex());
        QCOMPARE(clicked.size(), 1);
    }

    void withoutAParentARowStandsOnTheTopLevel()
    {
        WithoutRootFlags<AssetTree> tree;
        const QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::QtTest);

        tree.add(reflect(boat), "boat");
        tree.add(reflect(car), "car", reflect(boat));
        tree.add(reflect(bus), "bus", reflect(boat));

        QCOMPARE(treeLines(tree), (QStringList{"boat", "  car", "  bus"}));
    }

    void aRowGivesNameIconAndObject()
    {
        AssetTree tree;
        tree.add(reflect(car), "Stra\xc3\x9f" "e");
        const QModelIndex row = tree.index(0, 0);

        QCOMPARE(row.data(Qt::DisplayRole), QVariant(QString("Straße")));
        QCOMPARE(row.data(Qt::DecorationRole), QVariant(QString("Straße.png")));
        QVERIFY(row.data(SceneRoles::Object).value<zarn::ReflectedObject>() == reflect(car));
        QCOMPARE(row.data(SceneRoles::Type), QVariant());
        QCOMPARE(row.data(Qt::EditRole), QVariant());
    }

    void aRowWithoutADescriptionHasNoName()
    {
        AssetTree tree;
        tree.addRow(reflect(car), nullptr, {});

        QCOMPARE(tree.index(0, 0).data(), QVariant());
    }

    void rowsCannotBeEdited()
    {
        AssetTree tree;
        tree.add(reflect(car), "car");

        QCOMPARE(tree.index(0, 0).flags(), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        QVERIFY(!tree.setData(tree.index(0, 0), "bus"));
    }

    void anObjectIsFoundInItsRow()
    {
        AssetTree tree;
        tree.add(reflect(boat), "boat");
        tree.add(reflect(car), "car", reflect(boat));

        QCOMPARE(tree.indexOf(reflect(car)), tree.index(0, 0, tree.index(0, 0)));
        QCOMPARE(tree.indexOf(reflect(bus)), QModelIndex());
        QCOMPARE(tree.indexOf({}), QModelIndex());
    }

    void ofTwoRowsOfOneObjectTheFirstIsFound()
    {
        AssetTree tree;
        tree.add(reflect(car), "one");
        tree.add(reflect(car), "two");

        QCOMPARE(tree.rowCount(), 2);
        QCOMPARE(tree.indexOf(reflect(car)), tree.index(0, 0));
    }

    void aRowIsInsertedAndRemovedInOneBracketEach()
    {
        AssetTree tree;
        tree.add(reflect(boat), "boat");
        SignalLog log(tree);

        tree.add(reflect(car), "car", reflect(boat));
        tree.removeRow(reflect(boat));

        QCOMPARE(log.take(), (QStringList{"inserting /0 [0..0]", "inserted /0 [0..0]", "removing / [0..0]",
                                          "removed / [0..0]"}));
        QCOMPARE(tree.indexOf(reflect(boat)), QModelIndex());
    }

    void anUnknownParentIsRefused()
    {
        AssetTree tree;
        SignalLog log(tree);
        QString error;

        try {
            tree.add(reflect(car), "car", reflect(boat));
        } catch (const std::out_of_range& exception) {
            error = exception.what();
        }

        QCOMPARE(error, QString("invalid unordered_map<K, T> key"));
        QCOMPARE(log.take(), QStringList());
    }

    void anUnknownObjectIsNotRemoved()
    {
        AssetTree tree;
        QString error;

        try {
            tree.removeRow(reflect(car));
        } catch (const std::out_of_range& exception) {
            error = exception.what();
        }

        QCOMPARE(error, QString("invalid unordered_map<K, T> key"));
    }
};

QTEST_GUILESS_MAIN(tst_AssetModels)
#include "tst_asset_models.moc"
