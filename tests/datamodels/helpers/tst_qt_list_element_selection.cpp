#include <datamodels/helpers/qt_list_element_selection.h>

#include <support/scripted_tree.h>
#include <support/signal_log.h>

#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtTest>

class tst_QtListElementSelection : public QObject
{
    Q_OBJECT

    ScriptedTree* list = nullptr;
    QItemSelectionModel* selection = nullptr;

    QModelIndex row(int row) const { return list->index(row, 0); }

private Q_SLOTS:
    void initTestCase() { qmlRegisterType<QtListElementSelection>("Selecting", 1, 0, "Element"); }
    void init()
    {
        list = new ScriptedTree({"a", "b", "  below", "c", "d"});
        selection = new QItemSelectionModel(list, list);
    }
    void cleanup() { delete list; }

    void itFollowsTheSelectionOfItsRow()
    {
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(3);
        SignalLog log;
        log.addAll(element);

        selection->select(QItemSelection(row(1), row(3)), QItemSelectionModel::Select);
        QVERIFY(element.isSelected());
        selection->select(row(3), QItemSelectionModel::Deselect);
        QVERIFY(!element.isSelected());

        QCOMPARE(log.take(), (QStringList{"selectedChanged()", "selectedChanged()"}));
    }

    void selectionsOfOtherRowsAreNotTold()
    {
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(3);
        SignalLog log;
        log.addAll(element);

        selection->select(QItemSelection(row(0), row(2)), QItemSelectionModel::Select);
        selection->setCurrentIndex(row(1), QItemSelectionModel::NoUpdate);
        selection->clear();

        QCOMPARE(log.take(), QStringList());
    }

    void itFollowsTheCurrentRow()
    {
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(1);
        SignalLog log;
        log.addAll(element);

        selection->setCurrentIndex(row(1), QItemSelectionModel::NoUpdate);
        QVERIFY(element.isCurrent());
        selection->setCurrentIndex(row(2), QItemSelectionModel::NoUpdate);
        QVERIFY(!element.isCurrent());

        QCOMPARE(log.take(), (QStringList{"currentChanged()", "currentChanged()"}));
    }

    void aRowBelowAnotherIsNotMistakenForOneOfTheTopLevel()
    {
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(0);

        selection->setCurrentIndex(list->find("below"), QItemSelectionModel::Select);

        QVERIFY(!element.isSelected());
        QVERIFY(!element.isCurrent());
    }

    void anotherRowIsReadAtOnce()
    {
        selection->setCurrentIndex(row(2), QItemSelectionModel::Select);
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(0);
        SignalLog log;
        log.addAll(element);

        element.setRow(2);

        QCOMPARE(log.take(), (QStringList{"rowChanged()", "selectedChanged()", "currentChanged()"}));
        QVERIFY(element.isSelected());
        QVERIFY(element.isCurrent());
    }

    void noRowIsNotSelected()
    {
        selection->select(row(2), QItemSelectionModel::Select);
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(2);

        element.setRow(-1);

        QVERIFY(!element.isSelected());
    }

    void noRowIsCurrentWhereThereIsNone()
    {
        QtListElementSelection element;

        element.setSelectionModel(selection);

        QCOMPARE(element.row(), -1);
        QVERIFY(element.isCurrent());
    }

    void withoutASelectionModelNeitherIsTrue()
    {
        selection->setCurrentIndex(row(2), QItemSelectionModel::Select);
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(2);
        SignalLog log;
        log.addAll(element);

        element.setSelectionModel(nullptr);

        QCOMPARE(log.take(), (QStringList{"selectionModelChanged()", "selectedChanged()", "currentChanged()"}));
        QVERIFY(!element.isSelected());
        QVERIFY(!element.isCurrent());
    }

    void theFormerSelectionIsNotHeardAnyMore()
    {
        QItemSelectionModel other(list);
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(2);
        element.setSelectionModel(&other);

        selection->setCurrentIndex(row(2), QItemSelectionModel::Select);

        QVERIFY(!element.isSelected());
        QVERIFY(!element.isCurrent());
    }

    void settersTellChangesOnly()
    {
        QtListElementSelection element;
        element.setSelectionModel(selection);
        element.setRow(1);
        SignalLog log;
        log.addAll(element);

        element.setSelectionModel(selection);
        element.setRow(1);

        QCOMPARE(log.take(), QStringList());
    }

    void itAnswersWhenTheElementIsComplete()
    {
        selection->setCurrentIndex(row(1), QItemSelectionModel::Select);
        QtListElementSelection element;
        element.classBegin();
        element.setSelectionModel(selection);
        element.setRow(1);
        QVERIFY(!element.isSelected());

        element.componentComplete();

        QVERIFY(element.isSelected());
        QVERIFY(element.isCurrent());
    }

    void aSelectionThatDiesLeavesTheAnswers()
    {
        auto dying = std::make_unique<QItemSelectionModel>(list);
        QtListElementSelection element;
        element.setSelectionModel(dying.get());
        element.setRow(1);
        dying->select(row(1), QItemSelectionModel::Select);

        dying.reset();
        QVERIFY(element.isSelected());

        element.setRow(2);
        QVERIFY(!element.isSelected());
    }

    void delegatesBindToIt()
    {
        QQmlEngine engine;
        engine.rootContext()->setContextProperty("chosen", selection);
        QQmlComponent component(&engine);
        component.setData("import QtQml 2.15\nimport Selecting 1.0\nQtObject {\n"
                          "property Element element: Element { row: 2; selectionModel: chosen }\n"
                          "property string text: element.selected ? 'selected' : 'plain' }",
                          {});
        const std::unique_ptr<QObject> object(component.create());
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("text").toString(), QString("plain"));

        selection->select(row(2), QItemSelectionModel::Select);

        QCOMPARE(object->property("text").toString(), QString("selected"));
    }
};

QTEST_GUILESS_MAIN(tst_QtListElementSelection)
#include "tst_qt_list_element_selection.moc"
