#include "sample_scene.h"

#include <datamodels/scene/scene_item_button.h>
#include <datamodels/scene/scene_item_buttons_model.h>
#include <datamodels/scene_item_model.h>
#include <datamodels/scene_roles.h>

#include <support/log_capture.h>
#include <support/signal_log.h>

#include <QAbstractItemModelTester>
#include <QtTest>

using namespace stage;
using zarn::reflect;
using Model = AssetItemButtonsModel;

class tst_SceneItemButtons : public QObject
{
    Q_OBJECT

    std::shared_ptr<Actor> hand, leg, tail, body, hat, scene;
    Selection selection;
    SceneItemModel* model = nullptr;

    QAbstractListModel* buttons(const std::shared_ptr<Actor>& actor) const
    {
        return model->indexOf(reflect(*actor)).data(SceneRoles::RowButtonsModel).value<QAbstractListModel*>();
    }
    QStringList names(const std::shared_ptr<Actor>& actor) const
    {
        QStringList texts;
        for (int row = 0; row < buttons(actor)->rowCount(); ++row)
            texts << buttons(actor)->index(row).data().toString() + ' ' + buttons(actor)->index(row).data(Qt::ToolTipRole).toString();
        return texts;
    }
    /// By its name or its tool tip.
    QModelIndex button(const std::shared_ptr<Actor>& actor, const QString& name) const
    {
        const QAbstractListModel* list = buttons(actor);
        const QModelIndexList named = list->match(list->index(0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
        const QModelIndexList tipped = list->match(list->index(0), Qt::ToolTipRole, name, 1, Qt::MatchExactly);
        return (named + tipped).value(0);
    }
    void press(const std::shared_ptr<Actor>& actor, const QString& name, bool inversion = false)
    {
        button(actor, name).data(Model::ActionRole).value<SceneItemButton*>()->invoke(&selection, inversion);
    }
    static zarn::BoundProperty property(const std::shared_ptr<Actor>& actor, const char* name)
    {
        return reflect(*actor).findPropertyByName(name);
    }
    /// Of the parts of the body, in their order.
    QList<bool> visible() const { return {hand->isVisible, leg->isVisible, tail->isVisible}; }
    QList<int> resets() const { return {hand->resets, leg->resets, tail->resets}; }

private Q_SLOTS:
    void init()
    {
        hand = actor("hand");
        leg = actor("leg");
        tail = actor("tail");
        body = actor("body", {hand, leg, tail});
        hat = actor("hat");
        scene = actor("scene", {body, hat});
        selection = Selection();
        model = new SceneItemModel(reflect(*scene));
    }
    void cleanup() { delete model; }

    void aRowHasTheButtonsOfItsPropertiesAndOfItsCollections()
    {
        const QAbstractItemModelTester tester(buttons(hat), QAbstractItemModelTester::FailureReportingMode::QtTest);

        QCOMPARE(names(hat), (QStringList{"parts.1.1 Delete item", "isVisible Show", "reset ", "limits.isOpen ",
                                          "parts Add item"}));
    }

    void rolesAnswerForAButton()
    {
        const QModelIndex show = button(hat, "Show");

        QCOMPARE(show.data(Qt::DisplayRole), QVariant("isVisible"));
        QCOMPARE(show.data(Qt::DecorationRole), QVariant("eye"));
        QCOMPARE(show.data(Qt::ToolTipRole), QVariant("Show"));
        QCOMPARE(show.data(Model::CheckedRole), QVariant(true));
        QCOMPARE(show.data(Model::PosIndexRole), QVariant(quint64(2)));
        QCOMPARE(show.data(Model::IconTypeRole), QVariant("Default"));
        QCOMPARE(show.data(Model::ShowOnlyOnHoverRole), QVariant(false));
        QCOMPARE(show.data(Model::IconColourRole), QVariant(QColor(Qt::transparent)));
        QCOMPARE(button(hat, "Add item").data(Model::IconColourRole), QVariant(QColor(0xD4, 0xD4, 0xD4)));
        QCOMPARE(button(hat, "Delete item").data(Qt::DecorationRole), QVariant("model_asset/delete"));
    }

    void namesOfRolesAreQtsOwnAndItsOwn()
    {
        const QHash<int, QByteArray> names = buttons(hat)->roleNames();

        QCOMPARE(names.value(Qt::ToolTipRole), QByteArray("toolTip"));
        QCOMPARE(names.value(Qt::UserRole), QByteArray("action"));
        QCOMPARE(names.value(Qt::UserRole + 1), QByteArray("iconColour"));
        QCOMPARE(names.value(Qt::UserRole + 2), QByteArray("checked"));
        QCOMPARE(names.value(Qt::UserRole + 3), QByteArray("posIndex"));
        QCOMPARE(names.value(Qt::UserRole + 4), QByteArray("iconType"));
        QCOMPARE(names.value(Qt::UserRole + 5), QByteArray("showOnlyOnHover"));
    }

    void unknownRolesAndInvalidIndexesAreLogged()
    {
        LogCapture log;

        QCOMPARE(button(hat, "Show").data(Qt::EditRole), QVariant());
        QCOMPARE(buttons(hat)->data({}), QVariant());

        QCOMPARE(log.messages(),
                 (QStringList{"4 SceneItemButtonsModel::data(): A Data with unknown role has been requested!",
                              "5 SceneItemButtonsModel::data(): Invalid button data is requested!"}));
    }

    void aRowWithoutButtonsHasANullModelAndHiddenOnesNone()
    {
        Plain plain;
        const SceneItemModel bare(reflect(plain));
        const QVariant none = bare.data({}, SceneRoles::RowButtonsModel);
        QCOMPARE(none.userType(), qMetaTypeId<QAbstractListModel*>());
        QCOMPARE(none.value<QAbstractListModel*>(), nullptr);

        model->setRowButtonsVisible(false);
        QCOMPARE(model->indexOf(reflect(*hat)).data(SceneRoles::RowButtonsModel), QVariant());
    }

    void theFirstIconIsThatOfItsState()
    {
        const auto icon = [this](bool firstIconState, bool value) {
            hat->isVisible = value;
            Meta::IconButton record;
            record.firstIcon = "first";
            record.secondIcon = "second";
            record.firstIconState = firstIconState;
            return SceneItemButton(nullptr, property(hat, "isVisible"), {}, record, "name", "tip").icon();
        };

        QCOMPARE(icon(true, true), QString("first"));
        QCOMPARE(icon(true, false), QString("second"));
        QCOMPARE(icon(false, true), QString("second"));
        QCOMPARE(icon(false, false), QString("first"));
    }

    void coloursArePackedWithRedLowest()
    {
        Meta::IconButton record;
        record.colour = 0x0000FF;
        record.colourFunction = [](const zarn::BoundProperty&) { return 0x332211U; };

        QCOMPARE(SceneItemButton(nullptr, property(hat, "reset"), {}, record, "name", "").iconColor(),
                 QColor(0x11, 0x22, 0x33));
    }

    void anEmptyNameIsThatOfTheProperty()
    {
        QCOMPARE(SceneItemButton(nullptr, property(hat, "reset"), {}, {}, "", "").name(), QString("reset"));
    }

    void aButtonWithoutAnyNameFailsAnAssertion()
    {
        LogCapture log;

        const SceneItemButton button(nullptr, zarn::BoundProperty(), {}, {}, "", "");

        QCOMPARE(log.assertions(), QStringList{"!m_name.isEmpty()"});
    }

    void buttonsComeAndGoAsRows()
    {
        SceneItemButtonsModel list;
        SignalLog log(list);

        const SceneItemButton* first = list.addButton(property(hat, "reset"), "a", {});
        list.addButton(property(hat, "isVisible"), "b", {});
        list.onItemDataChanged(*first, *first, {Model::CheckedRole});
        list.removeButton(*first);

        QCOMPARE(log.take(), (QStringList{"inserting / [0..0]", "inserted / [0..0]", "inserting / [1..1]", "inserted / [1..1]",
                                          "changed /0 roles 258", "removing / [0..0]", "removed / [0..0]"}));
        QCOMPARE(list.index(0).data(Qt::ToolTipRole), QVariant("Show"));
    }

    void aPressIsOneStepOfTheDocument()
    {
        selection.select({hand, leg, tail});

        press(hand, "Show");

        QCOMPARE(visible(), (QList<bool>{false, false, false}));
        QCOMPARE(selection.document->count(), 1);
        QVERIFY(selection.document->undo());
        QCOMPARE(visible(), (QList<bool>{true, true, true}));
    }

    void aPressedSwitchShowsItsNewState()
    {
        press(hand, "Show");

        QCOMPARE(names(hand).filter("Show").size(), 1);
        QCOMPARE(button(hand, "Show").data(Model::CheckedRole), QVariant(false));
        QCOMPARE(button(hand, "Show").data(Qt::DecorationRole), QVariant("shut"));
    }

    void aClickOnAnUnselectedRowActsOnThatAlone()
    {
        selection.select({leg, tail});

        press(hand, "Show");

        QCOMPARE(visible(), (QList<bool>{false, true, true}));
    }

    void aSwitchTurnsAllSelectedToTheOppositeOfTheClickedOne()
    {
        leg->isVisible = false;
        selection.select({hand, leg});

        press(hand, "Show");

        QCOMPARE(visible(), (QList<bool>{false, false, true}));
    }

    void selectedObjectsOfAnotherTypeAreLeftOut()
    {
        Limits other;
        selection.select({hand});
        selection.objects.emplace_back(reflect(other));

        press(hand, "Show");

        QCOMPARE(visible(), (QList<bool>{false, true, true}));
    }

    void aMethodIsCalledForAllSelectedAndToldToTheSelection()
    {
        selection.select({tail, hand});

        press(hand, "reset");

        QCOMPARE(resets(), (QList<int>{1, 0, 1}));
        QCOMPARE(selection.methods, (std::vector<std::string>{"tail.reset", "hand.reset"}));
    }

    void invertedAMethodIsCalledForTheOtherSiblings()
    {
        selection.select({hand, hat});

        press(hand, "reset", true);

        QCOMPARE(resets(), (QList<int>{0, 1, 1}));
        QCOMPARE(hat->resets, 0);
    }

    void invertedASwitchExchangesTheTwoSides()
    {
        leg->isVisible = tail->isVisible = false;
        selection.select({hand});

        press(hand, "Show", true);
        QCOMPARE(visible(), (QList<bool>{false, true, true}));

        press(hand, "Show", true);
        QCOMPARE(visible(), (QList<bool>{true, false, false}));
    }

    void invertedOverMixedValuesTheClickedOneDecides()
    {
        tail->isVisible = false;
        selection.select({hand});

        press(hand, "Show", true);

        QCOMPARE(visible(), (QList<bool>{true, false, false}));
    }

    void aPathLeadsToNestedProperties()
    {
        selection.select({hand, leg});

        press(hand, "limits.isOpen");

        QVERIFY(hand->limits.isOpen);
        QVERIFY(leg->limits.isOpen);
        QVERIFY(!tail->limits.isOpen);
    }

    void anElementIsAddedUntilTheCollectionIsFull()
    {
        press(body, "Add item");

        QCOMPARE(body->parts->size(), std::size_t(4));
        QVERIFY(!names(body).contains("parts Add item"));
    }

    void anElementIsDeletedWithItsButton()
    {
        press(leg, "Delete item");

        QCOMPARE(body->parts->size(), std::size_t(2));
        QCOMPARE(model->indexOf(reflect(*leg)), QModelIndex());
        QVERIFY(selection.document->undo());
        QVERIFY(model->indexOf(reflect(*leg)).isValid());
    }

    void aFullCollectionThatLosesOneCanBeAddedToAgain()
    {
        press(body, "Add item");

        press(leg, "Delete item");

        QVERIFY(names(body).contains("parts Add item"));
    }

    void allSelectedElementsAreDeletedDownToTheMinimum()
    {
        selection.select({hand, leg, tail});

        press(leg, "Delete item");

        QCOMPARE(*body->parts, std::vector<std::shared_ptr<Actor>>{hand});
        QVERIFY(names(hand).filter("Delete item").isEmpty());
    }

    void ofSelectedElementsOnlySiblingsAreDeleted()
    {
        selection.select({hat, hand, leg});

        press(leg, "Delete item");

        QCOMPARE(*body->parts, std::vector<std::shared_ptr<Actor>>{tail});
        QCOMPARE(scene->parts->size(), std::size_t(2));
    }

    void aCollectionAtItsMinimumOffersNoDeletion()
    {
        press(hat, "Delete item");

        QVERIFY(names(body).filter("Delete item").isEmpty());
    }

    void withoutASelectionAButtonActsOnItsRow()
    {
        button(hand, "Show").data(Model::ActionRole).value<SceneItemButton*>()->invoke(nullptr);

        QCOMPARE(visible(), (QList<bool>{false, true, true}));
    }

    void anObjectMayDieWhileItsButtonIsPressed()
    {
        selection.select({hand, leg});
        const ryk::ScopedConnection killing = property(hand, "isVisible").connectPropertyChanged([this] {
            reflect(body->parts).removePropertyAt(0);
            hand.reset();
        });

        press(hand, "Show");

        QVERIFY(!hand);
        QVERIFY(!leg->isVisible);
        QCOMPARE(model->rowCount(model->indexOf(reflect(*body))), 2);
    }

    void qmlPressesAButtonWithTheSelection()
    {
        QObject* pressed = button(hand, "Show").data(Model::ActionRole).value<SceneItemButton*>();

        QVERIFY(QMetaObject::invokeMethod(pressed, "invoke", Q_ARG(IAssetSelection*, &selection)));

        QCOMPARE(visible(), (QList<bool>{false, true, true}));
    }
};

QTEST_MAIN(tst_SceneItemButtons)
#include "tst_scene_item_buttons.moc"
