#include <datamodels/atlas/qt_atlas_selection_helper.h>
#include <support/signal_log.h>

#include <QStringListModel>
#include <QtTest>

class tst_AtlasSelectionHelper : public QObject
{
    Q_OBJECT

    QStringListModel model{{"a", "b", "c"}};
    std::unique_ptr<QItemSelectionModel> selection;
    std::unique_ptr<QtAtlasSelectionHelper> helper;

    void select(int row, QItemSelectionModel::SelectionFlags how = QItemSelectionModel::ClearAndSelect)
    {
        selection->select(model.index(row), how);
    }

private Q_SLOTS:
    void init()
    {
        selection = std::make_unique<QItemSelectionModel>(&model);
        helper = std::make_unique<QtAtlasSelectionHelper>();
    }

    void itHasNoRowAndNoSelectionAtFirst()
    {
        QCOMPARE(helper->index(), -1);
        QVERIFY(!helper->selection());
        QVERIFY(!helper->isSelected());
    }

    void itTellsWhetherItsRowIsSelected()
    {
        select(1);
        helper->setSelection(selection.get());

        helper->setIndex(1);
        QVERIFY(helper->isSelected());

        helper->setIndex(2);
        QVERIFY(!helper->isSelected());
    }

    void itFollowsTheSelection()
    {
        helper->setSelection(selection.get());
        helper->setIndex(1);
        SignalLog log;
        log.addAll(*helper);

        select(1);
        select(2, QItemSelectionModel::Select);
        select(2);

        QCOMPARE(log.take(), (QStringList{"selectedChanged()", "selectedChanged()"}));
        QVERIFY(!helper->isSelected());
    }

    void withoutARowItIsNeverSelected()
    {
        helper->setSelection(selection.get());
        helper->setIndex(0);

        select(0);
        helper->setIndex(-1);

        QVERIFY(!helper->isSelected());
    }

    void aSelectionWithoutAModelSelectsNothing()
    {
        QItemSelectionModel bare;
        helper->setIndex(0);

        helper->setSelection(&bare);

        QVERIFY(!helper->isSelected());
    }

    void whetherItIsSelectedIsToldFirst()
    {
        select(1);
        SignalLog log;
        log.addAll(*helper);

        helper->setSelection(selection.get());
        helper->setIndex(1);
        helper->setSelection(nullptr);

        QCOMPARE(log.take(), (QStringList{"selectionChanged()", "selectedChanged()", "indexChanged()", "selectedChanged()",
                                          "selectionChanged()"}));
    }

    void equalValuesAreNotTold()
    {
        helper->setSelection(selection.get());
        SignalLog log;
        log.addAll(*helper);

        helper->setSelection(selection.get());
        helper->setIndex(-1);

        QCOMPARE(log.take(), QStringList());
    }

    void aFormerSelectionIsNotFollowed()
    {
        QItemSelectionModel other(&model);
        helper->setIndex(1);
        helper->setSelection(selection.get());
        helper->setSelection(&other);

        select(1);

        QVERIFY(!helper->isSelected());
    }

    void whileItLoadsNothingIsEvaluated()
    {
        select(1);
        SignalLog log;
        log.addAll(*helper);

        helper->classBegin();
        helper->setSelection(selection.get());
        helper->setIndex(1);
        log.note("loaded");
        helper->componentComplete();

        QCOMPARE(log.take(), (QStringList{"selectionChanged()", "indexChanged()", "loaded", "selectedChanged()"}));
    }

    void aSelectionThatGoesIsForgotten()
    {
        select(1);
        helper->setIndex(1);
        helper->setSelection(selection.get());
        SignalLog log;
        log.addAll(*helper);

        selection.reset();

        QCOMPARE(log.take(), (QStringList{"selectedChanged()", "selectionChanged()"}));
        QVERIFY(!helper->selection());
        QVERIFY(!helper->isSelected());
    }

    void aHelperMayGoBeforeItsSelection()
    {
        helper->setSelection(selection.get());
        helper->setIndex(1);
        helper.reset();

        select(1);

        QVERIFY(selection->isSelected(model.index(1)));
    }
};

QTEST_MAIN(tst_AtlasSelectionHelper)
#include "tst_atlas_selection_helper.moc"
