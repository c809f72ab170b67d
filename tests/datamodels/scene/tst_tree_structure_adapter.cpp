#include "sample_scene.h"

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene_roles.h>
#include <datamodels/tree_structure_adapter.h>
#include <datamodels/tree_structure_node.h>

#include <host/undo/changes_controller.h>
#include <host/undo/commit_changes_scope.h>

#include <support/log_capture.h>
#include <support/signal_log.h>
#include <support/tree_lines.h>

#include <QAbstractItemModelTester>
#include <QAbstractListModel>
#include <QtTest>

using namespace stage;
using Ozy::TreeStructureAdapter;
using zarn::reflect;
using zarn::ReflectedObject;

class tst_TreeStructureAdapter : public QObject
{
    Q_OBJECT

    std::shared_ptr<Actor> body = actor("body"), hand = actor("hand"), leg = actor("leg");
    TreeStructureAdapter* adapter = nullptr;

    void add(const std::shared_ptr<Actor>& object, const ReflectedObject& parent = {}, bool producing = true)
    {
        adapter->addRow(reflect(*object), {object->name, "icons/" + object->name + ".png", producing}, parent);
    }
    SceneItemModel& model() const { return adapter->getModel(); }
    QModelIndex root() const { return model().index(0, 0); }
    QModelIndex row(const std::shared_ptr<Actor>& object) const
    {
        return model().indexOf(adapter->getWrapper(reflect(*object)));
    }
    QStringList buttons(const QModelIndex& index) const
    {
        QStringList names;
        const auto* list = index.data(SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
        for (int i = 0; list && i < list->rowCount(); ++i)
            names << list->index(i).data().toString();
        return names;
    }
    void press(const QModelIndex& index, const QString& name) const
    {
        const auto* list = index.data(SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
        const QModelIndexList found = list->match(list->index(0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        found.at(0).data(Qt::UserRole).value<SceneItemButton*>()->invoke(nullptr);
    }

private Q_SLOTS:
    void init() { adapter = new TreeStructureAdapter("all", true); }
    void cleanup() { delete adapter; }

    void rowsStandBelowTheirParentsInTheOrderOfAddition()
    {
        const QAbstractItemModelTester tester(&model(), QAbstractItemModelTester::FailureReportingMode::QtTest);

        add(body);
        add(leg);
        add(hand, reflect(*body));

        QCOMPARE(treeLines(model()), (QStringList{"all", "  body", "    hand", "  leg"}));
        QCOMPARE(row(hand).data(Qt::DecorationRole), QVariant("icons/hand"));
    }

    void aRowIsOneInsertion()
    {
        add(body);
        SignalLog log(model());

        add(hand, reflect(*body));

        QCOMPARE(log.take(), (QStringList{"inserting /0/0 [0..0]", "inserted /0/0 [0..0]"}));
    }

    void theRootOffersAddAndNeverRemove()
    {
        QCOMPARE(buttons(root()), QStringList{"Add"});
        const ReflectedObject node = reflect(*adapter->getRoot());
        QVERIFY(node.findPropertyByName("_isRoot").get().value<bool>());
        QCOMPARE(node.findPropertyByName("wrapped").visibility().value(), 0U);
    }

    void aRowOffersAddIfItProduces()
    {
        add(body);
        add(hand, reflect(*body), false);

        // The object's own buttons stand beside.
        QCOMPARE(buttons(row(body)), (QStringList{"wrapped.isVisible", "wrapped.reset", "wrapped.limits.isOpen",
                                                  "wrapped.parts", "Add", "Remove me"}));
        QVERIFY(!buttons(row(hand)).contains("Add"));
        QVERIFY(buttons(row(hand)).contains("Remove me"));
        QCOMPARE(adapter->getWrapper(reflect(*body)).findPropertyByName("wrapped").visibility().value(), 15U);
    }

    void pressedButtonsAreRequestsWithTheRowsObject()
    {
        add(body);
        QStringList requests;
        const auto name = [](const ReflectedObject& object) {
            return object.isValid() ? QString::fromStdString(zarn::cast<Actor>(object)->name) : QString("nothing");
        };
        const ryk::ScopedConnection adding =
            adapter->connectObjectAddRequest([&](const ReflectedObject& object) { requests << "add to " + name(object); });
        const ryk::ScopedConnection removing = adapter->connectObjectRemoveRequest(
            [&](const ReflectedObject& object) { requests << "remove " + name(object); });

        press(root(), "Add");
        press(row(body), "Add");
        press(row(body), "Remove me");

        QCOMPARE(requests, (QStringList{"add to nothing", "add to body", "remove body"}));
        QCOMPARE(treeLines(model()), (QStringList{"all", "  body"}));
    }

    void theWrapperIsKnownByItsObject()
    {
        add(body);

        QVERIFY(adapter->getWrapper(reflect(*body)).isValid());
        QVERIFY(zarn::cast<TreeStructureAdapter::NodeInternal>(adapter->getWrapper(reflect(*body)))->wrapped() == reflect(*body));
        QVERIFY(!adapter->getWrapper(reflect(*hand)).isValid());
        QVERIFY(!adapter->getWrapper({}).isValid());
    }

    void aRemovedRowTakesAllBelowItAlongInOneRemoval()
    {
        add(leg);
        add(body);
        add(hand, reflect(*body));
        SignalLog log(model());

        adapter->removeRow(reflect(*body));

        QCOMPARE(log.take(), (QStringList{"removing /0 [1..1]", "removed /0 [1..1]"}));
        QVERIFY(!adapter->getWrapper(reflect(*body)).isValid());
        QVERIFY(!adapter->getWrapper(reflect(*hand)).isValid());
        QCOMPARE(treeLines(model()), (QStringList{"all", "  leg"}));
    }

    void anObjectCanBeAddedAgain()
    {
        add(body);
        adapter->removeRow(reflect(*body));

        add(body);

        QCOMPARE(treeLines(model()), (QStringList{"all", "  body"}));
        QVERIFY(row(body).isValid());
    }

    void aStatelessAdapterRecordsNothing()
    {
        Ozy::ChangesController document;
        add(body);
        {
            const Ozy::CommitChangesScope scope("edit", &document);
            adapter->removeRow(reflect(*body));
        }

        QCOMPARE(document.count(), 0);
    }

    void otherwiseARemovalIsRecordedAndUndoneAndAnAdditionIsNot()
    {
        TreeStructureAdapter recorded("all", false);
        Ozy::ChangesController document;
        {
            const Ozy::CommitChangesScope scope("add", &document);
            recorded.addRow(reflect(*body), {"body", "", false}, {});
        }
        QCOMPARE(document.count(), 0);
        {
            const Ozy::CommitChangesScope scope("remove", &document);
            recorded.removeRow(reflect(*body));
        }
        QCOMPARE(document.count(), 1);

        QVERIFY(document.undo());

        QCOMPARE(treeLines(recorded.getModel()), (QStringList{"all", "  body"}));
    }

    void anUnknownParentLeavesTheRowOutWithAMessage()
    {
        LogCapture log;

        add(hand, reflect(*body));

        QCOMPARE(log.messages(), QStringList{"5 TreeStructureAdapter: \"hand\" has an unknown parent and is left out"});
        QCOMPARE(treeLines(model()), QStringList{"all"});
        QVERIFY(!adapter->getWrapper(reflect(*hand)).isValid());
    }

    void anUnknownObjectIsNotRemoved()
    {
        LogCapture log;

        adapter->removeRow(reflect(*body));
        adapter->removeRow({});

        const QString condition = "it != m_objectsToNodes.end() && \"Non existent node remove attempt\"";
        QCOMPARE(log.assertions(), (QStringList{condition, condition}));
        QCOMPARE(treeLines(model()), QStringList{"all"});
    }

    void aSecondRowTakesThePlaceOfTheFirstAsWrapper()
    {
        add(body);
        add(leg);

        add(body, reflect(*leg));

        QCOMPARE(treeLines(model()), (QStringList{"all", "  body", "  leg", "    body"}));
        QCOMPARE(row(body).parent(), row(leg));
    }

    void rowsOfObjectsThatDiedGoWithTheirParent()
    {
        auto dying = actor("ghost");
        add(body);
        add(dying, reflect(*body));
        dying.reset();

        adapter->removeRow(reflect(*body));

        QCOMPARE(treeLines(model()), QStringList{"all"});
        QVERIFY(adapter->getRoot());
    }
};

QTEST_MAIN(tst_TreeStructureAdapter)
#include "tst_tree_structure_adapter.moc"
