#include "sample_scene.h"

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>

#include <host/asset/item_asset_selection.h>

#include <QAbstractListModel>
#include <QStringListModel>
#include <QtTest>

using namespace stage;
using zarn::reflect;

class tst_ItemAssetSelection : public QObject
{
    Q_OBJECT

    std::shared_ptr<Actor> hand = actor("hand"), leg = actor("leg"), tail = actor("tail");
    std::shared_ptr<Actor> body = actor("body", {hand, leg, tail});
    std::shared_ptr<Ozy::ChangesController> document = std::make_shared<Ozy::ChangesController>();

    static void select(QItemSelectionModel& rows, SceneItemModel& model, const std::shared_ptr<Actor>& actor)
    {
        rows.select(model.indexOf(reflect(*actor)), QItemSelectionModel::Select);
    }
    static std::vector<std::string> names(IAssetSelection& selection)
    {
        std::vector<std::string> names;
        for (const zarn::PersistentObject& object : selection.selectedObjects())
            names.push_back(zarn::cast<Actor>(object.object())->name);
        return names;
    }

private Q_SLOTS:
    void itIsInStepWithTheSelectedRows()
    {
        SceneItemModel model(reflect(*body));
        QItemSelectionModel rows(&model);
        ItemAssetSelection selection(rows, SceneRoles::Object, document);
        QCOMPARE(names(selection), std::vector<std::string>());

        select(rows, model, leg);
        select(rows, model, hand);

        QCOMPARE(names(selection), (std::vector<std::string>{"leg", "hand"}));
        QVERIFY(selection.isSelected(reflect(*hand)));
        QVERIFY(!selection.isSelected(reflect(*tail)));
        QCOMPARE(selection.changesController().lock(), document);
    }

    void aDeletionClearsTheRowsFirst()
    {
        SceneItemModel model(reflect(*body));
        QItemSelectionModel rows(&model);
        ItemAssetSelection selection(rows, SceneRoles::Object, document);
        select(rows, model, leg);

        selection.beforeDelete();

        QVERIFY(!rows.hasSelection());
    }

    void aButtonActsOnTheSelectedRows()
    {
        SceneItemModel model(reflect(*body));
        QItemSelectionModel rows(&model);
        ItemAssetSelection selection(rows, SceneRoles::Object, document);
        std::vector<std::string> methods;
        selection.setMethodListener([&](const zarn::BoundProperty& method) { methods.push_back(method.name()); });
        select(rows, model, leg);
        select(rows, model, hand);
        const auto* list =
            model.indexOf(reflect(*hand)).data(SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
        const QModelIndex reset = list->match(list->index(0), Qt::DisplayRole, "reset").value(0);

        reset.data(Qt::UserRole).value<SceneItemButton*>()->invoke(&selection);

        QCOMPARE(hand->resets, 1);
        QCOMPARE(leg->resets, 1);
        QCOMPARE(tail->resets, 0);
        QCOMPARE(methods, (std::vector<std::string>{"reset", "reset"}));
    }

    void rowsWithoutObjectsAreLeftOut()
    {
        QStringListModel texts({"a"});
        QItemSelectionModel rows(&texts);
        ItemAssetSelection selection(rows, SceneRoles::Object, document);

        rows.select(texts.index(0), QItemSelectionModel::Select);

        QVERIFY(selection.selectedObjects().empty());
    }

    void afterTheDeathOfTheRowsNothingIsSelected()
    {
        SceneItemModel model(reflect(*body));
        auto rows = std::make_unique<QItemSelectionModel>(&model);
        ItemAssetSelection selection(*rows, SceneRoles::Object, document);
        select(*rows, model, leg);

        rows.reset();
        selection.beforeDelete();

        QVERIFY(selection.selectedObjects().empty());
        QVERIFY(!selection.isSelected(reflect(*leg)));
    }
};

QTEST_MAIN(tst_ItemAssetSelection)
#include "tst_item_asset_selection.moc"
