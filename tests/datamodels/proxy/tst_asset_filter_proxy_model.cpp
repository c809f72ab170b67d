#include <datamodels/proxy/asset_filter_proxy_model.h>

#include "../sample_assets.h"

#include <datamodels/proxy/predicates/text_predicate.h>

#include <support/tree_lines.h>

#include <QtTest>

using namespace sample;
using qelm::datamodels::proxy::AssetFilterProxyModel;
using qelm::datamodels::proxy::TextPredicate;
using zarn::reflect;

class tst_AssetFilterProxyModel : public QObject
{
    Q_OBJECT

    Boat boat;
    Vehicle car;
    Vehicle bus;
    AssetTree* tree = nullptr;
    AssetFilterProxyModel* proxy = nullptr;

private Q_SLOTS:
    void init()
    {
        tree = new AssetTree;
        tree->add(reflect(boat), "boat");
        tree->add(reflect(car), "car");
        tree->add(reflect(bus), "bus");
        auto* predicate = new TextPredicate;
        predicate->setText("b");
        proxy = new AssetFilterProxyModel(predicate, tree);
        proxy->setSourceModel(tree);
        proxy->setSourceAssetModel(tree);
    }
    void cleanup() { delete tree; }

    void itFiltersByItsPredicate()
    {
        QCOMPARE(treeLines(*proxy), (QStringList{"boat", "bus"}));
        QCOMPARE(proxy->itemModel(), proxy);
        QCOMPARE(proxy->sourceAssetModel(), tree);
    }

    void anObjectIsFoundInItsRowOfTheProxy()
    {
        QCOMPARE(proxy->indexOf(reflect(bus)), proxy->index(1, 0));
        QCOMPARE(proxy->indexOf(reflect(car)), QModelIndex());
    }

    void indexesMapBothWays()
    {
        const QModelIndex bus = tree->index(2, 0);

        QCOMPARE(proxy->mapIndex(bus), proxy->index(1, 0));
        QCOMPARE(proxy->doMapIndex(bus), proxy->index(1, 0));
        QCOMPARE(proxy->mapToSourceIndex(proxy->index(1, 0)), bus);
    }

    void hoverIsForwarded()
    {
        proxy->updateHoverRole(reflect(bus), true);

        QVERIFY(tree->hovered() == reflect(bus));
    }

    void aDoubleClickGoesToTheSourceAsItsIndex()
    {
        QList<QModelIndex> clicked;
        const ryk::ScopedConnection connection =
            proxy->connectOnDoubleClicked([&](const QModelIndex& index) { clicked << index; });

        proxy->onDoubleClicked(proxy->index(1, 0));

        QCOMPARE(clicked, QList<QModelIndex>{tree->index(2, 0)});
    }

    void proxiesStack()
    {
        AssetFilterProxyModel top;
        top.setSourceModel(proxy);
        top.setSourceAssetModel(proxy);

        QCOMPARE(top.indexOf(reflect(bus)), top.index(1, 0));
    }

    void withoutASourceAssetModelNothingIsForwarded()
    {
        AssetFilterProxyModel alone;
        alone.setSourceModel(tree);

        alone.updateHoverRole(reflect(bus), true);
        alone.onDoubleClicked(alone.index(0, 0));

        QCOMPARE(alone.sourceAssetModel(), nullptr);
        QCOMPARE(alone.mapIndex(tree->index(0, 0)), QModelIndex());
        QCOMPARE(alone.indexOf(reflect(bus)), QModelIndex());
        QVERIFY(!alone.connectOnDoubleClicked([](const QModelIndex&) {}).isConnected());
        QVERIFY(!tree->hovered().isValid());
    }
};

QTEST_GUILESS_MAIN(tst_AssetFilterProxyModel)
#include "tst_asset_filter_proxy_model.moc"
